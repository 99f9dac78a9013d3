// The design of the main window on the screen: menu bar, panels, status line.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign meter_rec_design();

}  // namespace halden
