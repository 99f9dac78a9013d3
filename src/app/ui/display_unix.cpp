// Whether there is a display, on systems where there may be none.
#if defined(__unix__) && !defined(__APPLE__)

#include <cstdlib>

#include "app/ui/desktop_program.h"

namespace halden {

std::string missing_display() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const char* value = std::getenv(variable); value != nullptr && *value != '\0') return {};
  return "There is no display to show a window on; \"haldenctl live\" shows the readings in a terminal.";
}

}  // namespace halden

#endif
