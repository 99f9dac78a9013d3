// Why nothing was printed, as a sentence for the user.
#pragma once

#include <cstdint>
#include <string>

#include "platform/printer.h"

namespace halden {

// In Chinese for `language` 1. Empty for `none`.
std::string print_failure_sentence(PrintFailure failure, std::int16_t language);

}  // namespace halden
