// `haldenctl hardcopy`: draws a picture of the meter's display, from a file of them, into a picture file. It
// needs no meter and no display.
#pragma once

#include "cli/command.h"
#include "platform/offscreen.h"

namespace halden {

// Adds the command; it reads from `files`, which outlive the run.
void add_hardcopy_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                          ChosenCommand& chosen);

}  // namespace halden
