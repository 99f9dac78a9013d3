// What the file tools say in a box when a file cannot be opened.
#pragma once

#include <string_view>

#include "platform/files.h"

namespace halden {

inline std::string_view open_failure_message(FileFailure failure) {
  return failure == FileFailure::not_found ? "File not found" : "Bad file name or number";
}

}  // namespace halden
