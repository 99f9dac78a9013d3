// The device that usually stands behind a port number on this operating system.
#pragma once

#include <string>

namespace halden {

// `number` is 1 to 16.
std::string default_device(int number);

}  // namespace halden
