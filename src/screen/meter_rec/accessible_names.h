// What assistive technology calls the controls of the main window whose text or caption does not say what
// they are: the button and the box of a setting have the same caption.
#pragma once

#include <span>

#include "screen/window.h"

namespace halden {

// In both languages; valid until the program ends.
std::span<const Caption> main_window_accessible_names();

}  // namespace halden
