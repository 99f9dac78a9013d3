// What the downloads of the datalogger work with, in one piece, and the silence they share.
#pragma once

#include <string>
#include <string_view>

#include "link/link.h"
#include "logger/logger_messages.h"
#include "logger/meter_line.h"
#include "logger/transfer_panel.h"
#include "platform/platform.h"

namespace halden {

struct LoggerParts {
  Platform platform;
  Link& link;
  MeterLine& line;
  LoggerMessages& messages;
  TransferPanel& panel;
  std::string work_folder;  // for the files between transfer and conversion

  std::string work_path(std::string_view name) const { return work_folder + "/" + std::string(name); }
};

// After a transfer that was cancelled or cut: waits until the line has been silent and shows that. False,
// and the user is told, when it was not; then nothing may be sent to the meter.
bool wait_for_silence(const LoggerParts& parts);

// The same before an exchange, only when bytes of an earlier transfer come.
bool is_ready_for_request(const LoggerParts& parts);

// Reads the status of the meter once it is silent. False, and the user is told, when that failed or when the
// reply has lost a byte about the stored file: no file may get the dates of another one.
bool query_stored_file(const LoggerParts& parts);

}  // namespace halden
