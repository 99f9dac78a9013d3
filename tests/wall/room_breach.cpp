// None of these is listed for the room this file stands in.
#include <platform/qt/core/qt_clock.h>

#include "app/application.h"
#include "live/live_view.h"
