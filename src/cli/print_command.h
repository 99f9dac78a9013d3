// `haldenctl print`: prints the lines of a text file onto landscape pages of a PDF file. It needs no meter,
// no printer and no display.
#pragma once

#include "cli/command.h"
#include "platform/offscreen.h"

namespace halden {

// Adds the command; it reads from `files`, which outlive the run.
void add_print_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                       ChosenCommand& chosen);

}  // namespace halden
