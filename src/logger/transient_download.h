// The download of the transient report: nothing is sent to the meter, the user presses its button.
#pragma once

#include <string>

#include "logger/download_result.h"
#include "logger/logger_parts.h"
#include "logger/output_file.h"

namespace halden {

class TransientDownload {
 public:
  // The parts outlive the download.
  explicit TransientDownload(const LoggerParts& parts) : parts_(parts) {}

  // Waits 12 seconds for the report, which has ended when 2 seconds pass without a byte, and adds its events
  // to the end of the file at `path`.
  DownloadResult run(const std::string& path);

 private:
  void receive();
  void keep_and_show();
  void write_report();
  void convert(OutputFile& output);
  void finish();
  void note_lost_bytes();
  void note_failure(FileFailure failure);

  const LoggerParts& parts_;
  std::string report_;       // what was received
  std::size_t written_ = 0;  // bytes of it that are in the file of the report
  double began_s_ = 0;       // monotonic, as the next
  double shown_s_ = 0;
  DownloadResult result_;
};

}  // namespace halden
