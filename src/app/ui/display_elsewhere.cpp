// On these systems there is always a display.
#if !defined(__unix__) || defined(__APPLE__)

#include "app/ui/desktop_program.h"

namespace halden {

std::string missing_display() { return {}; }

}  // namespace halden

#endif
