// A path as it is shown where there is little room.
#pragma once

#include <string_view>

namespace halden {

// Without the folder.
inline std::string_view name_of_file(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace halden
