// The datalogger window Logger: what the meter has stored, its downloads, and clearing its memory.
//
// Live polling stands still from the opening of the window to its closing, because a stored file may be
// arriving at any time in between. One exchange runs at a time; what the user clicks meanwhile is refused,
// but for Cancel. Closing the window during an exchange cancels it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/link.h"
#include "logger/download_all.h"
#include "logger/download_result.h"
#include "logger/logger_messages.h"
#include "logger/logger_parts.h"
#include "logger/meter_line.h"
#include "logger/result_texts.h"
#include "logger/stored_kind.h"
#include "logger/transfer_panel.h"
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

  // Live polling stops and the window is shown.
  void open();

  // What the buttons do once the file is chosen, for a program without windows.
  bool read_status();
  bool select(int number);
  DownloadResult download(const StoredKind& kind, const std::string& path);
  DownloadResult download_transient(const std::string& path);
  RunResult download_all(const std::string& folder,
                         const std::function<void(const FileOfRun&)>& file_done = {});
  bool clear_memory();
  void cancel() { line_.cancel(); }

 private:
  enum class Cancelling { possible, impossible };

  void connect();
  void open_asked();
  void close();
  void unload();
  void exchange(std::string_view name, const Text& task, Cancelling cancelling,
                const std::function<void()>& work);
  void lock(bool locked);
  void show_status();
  bool nothing_is_stored();
  void ask_and_download(const StoredKind& kind);
  void ask_and_download_transient();
  void download_all_into_work_folder();
  void ask_and_clear();
  bool query_keeping_start();
  std::string chosen_file(std::string_view extension, const std::string& suggested_name);
  void show_result(const std::string& path, const DownloadResult& result, Amount amount);
  void add_result(const std::string& line);

  Platform platform_;
  Window& meter_rec_;
  Link& link_;
  Window window_;
  MeterLine line_;
  LoggerMessages messages_;
  TransferPanel panel_;
  LoggerParts parts_;
  DownloadAll download_all_;
  bool busy_ = false;
  bool close_wanted_ = false;
  bool start_edited_ = false;  // by the user, since the status was read
  Lines results_;
  std::string results_folder_;
};

}  // namespace halden
