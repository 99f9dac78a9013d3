// Why a port, a printer or a file failed, and where a print went, as sentences and words for the user in both
// languages.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/printer.h"
#include "platform/serial_port.h"
#include "screen/language.h"

namespace halden {

// Why a port did not open and, where possible, what the user can do. `device` is its device ("/dev/ttyUSB0").
// Empty for `none`. For a port in use the sentence names its lock file, unless that is empty: the file may be
// left from a program that was killed.
std::string refusal_sentence(PortRefusal refusal, const std::string& device, const std::string& lock_file,
                             Language language);

// Where the print went, or why nothing was printed.
std::string print_sentence(PrintFailure failure, const std::string& destination, Language language);

// Why a file could not be written, in two or three words. Empty for `none`.
std::string_view write_failure_text(FileFailure failure, Language language);

}  // namespace halden
