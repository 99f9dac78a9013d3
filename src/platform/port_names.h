// The device that a port number usually means on this operating system.
#pragma once

#include <string>

namespace halden {

// `number` is 1 to 16.
std::string default_device(int number);

}  // namespace halden
