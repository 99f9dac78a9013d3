// The window that plots power data files on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign plot_form_design();

}  // namespace halden
