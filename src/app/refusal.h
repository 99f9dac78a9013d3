// Why a port did not open, as a sentence that tells the user what to do about it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/serial_port.h"

namespace halden {

// `device` is what stands behind the port ("/dev/ttyUSB0"). In Chinese for `language` 1. Empty for `none`.
std::string refusal_sentence(PortRefusal refusal, const std::string& device, std::int16_t language);

}  // namespace halden
