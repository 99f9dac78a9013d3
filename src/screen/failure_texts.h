// Why a port, a printer or a file failed, as sentences and words for the user in both languages.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/printer.h"
#include "platform/serial_port.h"
#include "screen/language.h"

namespace halden {

// What the user can do about a port that did not open. `device` is what stands behind it ("/dev/ttyUSB0").
// Empty for `none`.
std::string refusal_sentence(PortRefusal refusal, const std::string& device, Language language);

// Why nothing was printed. Empty for `none`.
std::string_view print_failure_sentence(PrintFailure failure, Language language);

// Why a file could not be written, in two or three words. Empty for `none`.
std::string_view write_failure_text(FileFailure failure, Language language);

}  // namespace halden
