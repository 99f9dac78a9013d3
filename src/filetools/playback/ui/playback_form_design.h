// The window that plays back spectra and waveforms on the screen.
#pragma once

#include "screen/ui/form_window.h"

namespace halden {

FormDesign playback_form_design();

}  // namespace halden
