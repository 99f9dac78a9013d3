// The design of the phasor window on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign phasor_form_design();

}  // namespace halden
