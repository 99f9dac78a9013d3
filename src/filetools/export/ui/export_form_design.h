// The design of the window that exports numbers on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign export_form_design();

}  // namespace halden
