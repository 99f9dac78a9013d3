// `haldenctl points`: prints what is plotted of a power data file, one line a point. It needs no meter.
#pragma once

#include "cli/command.h"
#include "platform/files.h"

namespace halden {

// Adds the command; it reads from `files`, which outlive the run.
void add_points_command(CLI::App& app, Files& files, ChosenCommand& chosen);

}  // namespace halden
