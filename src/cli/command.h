// What the commands of haldenctl have in common on the command line.
#pragma once

#include <functional>
#include <string>

#include "cli/port_argument.h"
#include "cli/record.h"
#include "cli/session.h"

namespace CLI {
class App;
}

namespace halden {

// The command that was typed, ready to run on sessions it opens; returns the exit code.
using ChosenCommand = std::function<int(const OpenSession& open)>;

// Every command adds itself to the command line, and puts itself into `chosen` when it is the one typed.
void add_status_command(CLI::App& app, ChosenCommand& chosen);
void add_live_command(CLI::App& app, ChosenCommand& chosen);
void add_record_command(CLI::App& app, ChosenCommand& chosen);
void add_set_command(CLI::App& app, ChosenCommand& chosen);

struct CommonOptions {
  PortArgument port;
  Format format = Format::text;
};

// Adds --port and --format. `options` lives until the command line is parsed.
void add_common_options(CLI::App& command, CommonOptions& options);

}  // namespace halden
