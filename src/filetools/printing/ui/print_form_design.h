// The design of the print dialog on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign print_form_design();

}  // namespace halden
