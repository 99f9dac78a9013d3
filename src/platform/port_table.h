// Which device belongs to COM 1 to 16.
//
// On Windows COM n is COMn. On Linux: 1-4 /dev/ttyUSB0-3, 5-8 /dev/ttyACM0-3, 9-12 /dev/ttyS0-3, 13-16
// /dev/rfcomm0-3. An entry can be overridden (`--com N=DEVICE`); a device may be a symbolic link or a
// pseudo-terminal.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/serial_port.h"

namespace halden {

class PortTable {
 public:
  PortTable();

  // Empty for a number outside 1..16.
  std::string device(int number) const;

  void override_device(int number, std::string device);

 private:
  std::array<std::string, last_port_number + 1> devices_;
};

// The device of port `number` (1..16) on this operating system while the entry is not overridden.
std::string default_device(int number);

// "N=DEVICE" with N in 1..16 and a device that is not empty; nothing otherwise.
std::optional<std::pair<int, std::string>> parse_port_override(std::string_view text);

}  // namespace halden
