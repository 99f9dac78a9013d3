// The chart of the main window while a view waits for its first frame.
#pragma once

#include "screen/language.h"
#include "screen/window.h"

namespace halden {

void show_waiting_chart(Window& meter_rec, Language language);

}  // namespace halden
