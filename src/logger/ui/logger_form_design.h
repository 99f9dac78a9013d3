// The design of the datalogger window on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

// The window shows the notice in its transfer panel. The notice outlives the form.
FormDesign logger_form_design(Window& notice);

}  // namespace halden
