// The design of the hardcopy window on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign hardcopy_form_design();

}  // namespace halden
