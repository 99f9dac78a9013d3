// The download of the selected stored file: transfer, conversion, and the status of the meter read again.
//
// The meter sends a stored file once and says neither how long it is nor what it holds: what shows a loss is
// a total that is not whole records, and bytes that come after the silence that ends a transfer. What has
// arrived is converted in any case.
#pragma once

#include <cstddef>
#include <string>

#include "logger/download_result.h"
#include "logger/logger_parts.h"
#include "logger/output_file.h"
#include "logger/status_panel.h"
#include "logger/stored_kind.h"

namespace halden {

class StoredDownload {
 public:
  // The parts outlive the download.
  StoredDownload(const LoggerParts& parts, const StoredKind& kind, RecordedStart start)
      : parts_(parts), kind_(kind), start_(std::move(start)) {}

  // Adds the selected file, which is of this kind, to the end of the file at `path`.
  DownloadResult run(const std::string& path);

 private:
  void tell_unknown_wiring() const;
  bool try_files(OutputFile& output);
  void receive();
  void convert(const std::string& path);
  void finish();
  void look_for_late_bytes();
  void query_status();
  void note_lost_bytes();
  void note_failure(FileFailure failure);
  bool was_stopped() const;

  const LoggerParts& parts_;
  const StoredKind& kind_;
  RecordedStart start_;
  std::string words_path_;  // of the received words; of a hardcopy its file
  DownloadResult result_;
};

}  // namespace halden
