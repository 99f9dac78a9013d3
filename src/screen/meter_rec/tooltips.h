// What the quantities, boxes and buttons of the main window are, in both languages.
#pragma once

#include <span>

#include "screen/window.h"

namespace halden {

// Valid until the program ends.
std::span<const Caption> main_window_tooltips();

}  // namespace halden
