#ifndef _WIN32

#include <array>
#include <string_view>

#include "platform/port_table.h"

namespace halden {

// Four of each kind of adapter.
std::string default_device(int number) {
  constexpr std::array<std::string_view, 4> families = {"/dev/ttyUSB", "/dev/ttyACM", "/dev/ttyS",
                                                        "/dev/rfcomm"};
  const auto index = static_cast<std::size_t>(number - first_port_number);
  return std::string(families[index / 4]) + std::to_string(index % 4);
}

}  // namespace halden

#endif
