// `haldenctl export`: writes any data file as a table of numbers for other programs. It needs no meter.
#pragma once

#include "cli/command.h"
#include "platform/files.h"

namespace halden {

// Adds the command; it reads and writes `files`, which outlive the run.
void add_export_command(CLI::App& app, Files& files, ChosenCommand& chosen);

}  // namespace halden
