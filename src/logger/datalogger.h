// What the datalogger does with the meter, one exchange at a time: reading its status, selecting a stored
// file, downloads, clearing the memory. It asks the user nothing; the datalogger window and haldenctl do
// that.
#pragma once

#include <functional>
#include <string>

#include "link/link.h"
#include "logger/download_all.h"
#include "logger/download_result.h"
#include "logger/logger_messages.h"
#include "logger/logger_parts.h"
#include "logger/meter_line.h"
#include "logger/stored_kind.h"
#include "logger/transfer_panel.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

enum class Cleared { yes, no, unknown };

class Datalogger {
 public:
  // All outlive this. Figures and status are shown in the datalogger window.
  Datalogger(const Platform& platform, Window& logger, Window& notice, Link& link,
             const std::string& work_folder);
  Datalogger(const Datalogger&) = delete;
  Datalogger& operator=(const Datalogger&) = delete;

  // The line belongs to the datalogger from here to there: live polling stands still.
  void take_line();
  void give_line_back();

  // Before each of the exchanges that follow.
  void begin() { line_.begin(); }
  void cancel() { line_.cancel(); }
  bool is_cancelled() const { return line_.is_cancelled(); }

  // "No Data Recorded" is told.
  StatusRead read_status();
  bool nothing_is_stored();

  // The same before a download, which does not want its file to be another one than the user saw.
  bool query_stored_file() { return halden::query_stored_file(parts_); }

  bool select(int number);
  DownloadResult download(const StoredKind& kind, const std::string& path);
  DownloadResult download_transient(const std::string& path);
  RunResult download_all(const std::string& folder, const std::function<void(const FileOfRun&)>& file_done);
  Cleared clear_memory();

  TransferPanel& panel() { return panel_; }
  void say(std::string_view text) { messages_.say(text); }
  bool is_ready() { return is_ready_for_request(parts_); }
  const std::string& work_folder() const { return parts_.work_folder; }

 private:
  Platform platform_;
  Link& link_;
  Window& window_;
  MeterLine line_;
  LoggerMessages messages_;
  TransferPanel panel_;
  LoggerParts parts_;
  DownloadAll download_all_;
};

}  // namespace halden
