// Which windows of the program have a form on the screen.
#pragma once

#include <memory>
#include <vector>

#include "screen/ui/form_window.h"
#include "screen/windows.h"

namespace halden {

// The forms of all windows that have a design, the main window's first. Windows and input outlive them.
std::vector<std::unique_ptr<FormWindow>> make_forms(const Windows& windows, UserInput& input, Look look);

}  // namespace halden
