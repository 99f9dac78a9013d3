// Which meter a command talks to, as typed after --port.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/serial_port.h"

namespace halden {

struct PortArgument {
  bool simulated = false;          // the simulated meter, on no port at all
  int number = first_port_number;  // 1..16
  std::string device;              // replaces the usual device of `number`, unless empty
};

// "1" to "16", "demo", or a device: any text with a "/" and, on Windows, "COM3". Nothing
// for any other text.
std::optional<PortArgument> parse_port_argument(std::string_view text);

}  // namespace halden
