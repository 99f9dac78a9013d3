// The datalogger window Logger: its buttons, what the user is asked before an exchange, and what became of
// it.
//
// Live polling stands still from the opening of the window to its closing, because a stored file may be
// arriving at any time in between. One exchange runs at a time; what the user clicks meanwhile is refused,
// but for Cancel. Closing the window during an exchange cancels it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/link.h"
#include "logger/datalogger.h"
#include "logger/download_result.h"
#include "logger/logger_form.h"
#include "logger/stored_kind.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

class LoggerWindow {
 public:
  // All outlive the window. Connects the entry of the main window that opens it.
  LoggerWindow(const Platform& platform, Windows& windows, Window& meter_rec, Window& notice, Link& link,
               const std::string& work_folder);
  LoggerWindow(const LoggerWindow&) = delete;
  LoggerWindow& operator=(const LoggerWindow&) = delete;

  // The exchanges, for a program without windows.
  Datalogger& exchanges() { return datalogger_; }

 private:
  enum class Cancelling { possible, impossible };

  void connect();
  void connect_downloads();
  void open();
  void ask_and_open();
  void close();
  void unload();
  void exchange(std::string_view button, Cancelling cancelling, const std::function<void()>& work);
  void lock(bool locked);
  void note_refusal(const std::string& name);
  void forget_refusal();

  void ask_and_download(const StoredKind& kind);
  void ask_and_download_transient();
  void download_all();
  void ask_and_clear();
  bool query_keeping_start();
  std::string chosen_file(std::string_view extension, const std::string& suggested_name);
  void show_result(const std::string& path, const DownloadResult& result);
  void add_result(const std::string& line);

  Platform platform_;
  Window& meter_rec_;
  Link& link_;
  Window window_ = make_logger_window();
  Datalogger datalogger_;
  bool busy_ = false;
  bool close_wanted_ = false;
  bool start_edited_ = false;  // by the user, since the status was read
  std::string refusal_;        // told in the main window's status line
  Lines results_;
  std::string results_folder_;
};

}  // namespace halden
