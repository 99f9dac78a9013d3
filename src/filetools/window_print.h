// Prints a window of the file tools.
#pragma once

#include <string>

#include "platform/platform.h"
#include "screen/language.h"
#include "screen/window.h"

namespace halden {

// In landscape. The two live timers stand still meanwhile and are as they were afterwards. Says in a sentence
// where the print went, or why nothing was printed.
std::string print_in_landscape(const Platform& platform, const Window& window, Language language);

}  // namespace halden
