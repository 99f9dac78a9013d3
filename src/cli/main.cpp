// haldenctl: the companion on the command line.

#include <CLI/CLI.hpp>

#include "cli/command.h"
#include "cli/qt/qt_session.h"
#include "platform/process.h"

int main(int argc, char** argv) {
  halden::prepare_process();
  CLI::App app("Companion of the Halden power and harmonics analyzer, without windows", "haldenctl");
  app.require_subcommand(1);
  app.set_version_flag("--version", "haldenctl " HALDEN_VERSION);
  halden::ChosenCommand chosen;
  halden::add_status_command(app, chosen);
  halden::add_live_command(app, chosen);
  halden::add_record_command(app, chosen);
  halden::add_set_command(app, chosen);
  for (CLI::App* command : app.get_subcommands({}))
    command->set_version_flag("--version", "haldenctl " HALDEN_VERSION);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return app.exit(end) == 0 ? halden::exit_done : halden::exit_wrong_usage;
  }
  return chosen(halden::open_qt_session);
}
