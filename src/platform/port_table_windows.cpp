#ifdef _WIN32

#include "platform/port_table.h"

namespace halden {

std::string default_device(int number) { return "COM" + std::to_string(number); }

}  // namespace halden

#endif
