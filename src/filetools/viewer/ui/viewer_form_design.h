// The design of the viewer window on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign viewer_form_design();

}  // namespace halden
