// Finds and loads the library that draws. Windows, fonts and pictures of Qt are loaded with it: linked to the
// program they would take several times as long to load as everything else, at every command.
#pragma once

#include "platform/offscreen.h"

namespace halden {

OffscreenStart open_offscreen(Files& files);

}  // namespace halden
