// haldenctl: the companion on the command line.

#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

#include "cli/command.h"
#include "cli/export_command.h"
#include "cli/hardcopy_command.h"
#include "cli/playback_command.h"
#include "cli/plot_command.h"
#include "cli/points_command.h"
#include "cli/print_command.h"
#include "cli/qt/offscreen_library.h"
#include "cli/qt/qt_session.h"
#include "platform/process.h"
#include "platform/qt/core/qt_files.h"

namespace {

// Every command has it.
void add_version_flag(CLI::App& command) {
  command.set_version_flag("--version", "haldenctl " HALDEN_VERSION);
  for (CLI::App* behind : command.get_subcommands({})) add_version_flag(*behind);
}

// Something typed that is not known is the cause, not what is missing because of it.
void parse(CLI::App& app, int argc, char** argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::RequiredError&) {
    if (const auto unknown = app.remaining(true); !unknown.empty()) throw CLI::ExtrasError({unknown.front()});
    throw;
  }
}

// Prints the help, the version or what was wrong.
int end_without_command(const CLI::App& app, const CLI::ParseError& end) {
  std::ostringstream results;
  return app.exit(end, results, std::cerr) == 0 ? halden::print_and_end(results.str())
                                                : halden::exit_wrong_usage;
}

}  // namespace

int main(int argc, char** argv) {
  halden::prepare_process();
  CLI::App app("Companion of the Halden power and harmonics analyzer, without windows", "haldenctl");
  app.require_subcommand(1);
  halden::ChosenCommand chosen;
  halden::QtFiles files;
  halden::add_status_command(app, chosen);
  halden::add_live_command(app, chosen);
  halden::add_record_command(app, chosen);
  halden::add_set_command(app, chosen);
  halden::add_logger_command(app, chosen);
  halden::add_points_command(app, files, chosen);
  halden::add_plot_command(app, files, halden::open_offscreen, chosen);
  halden::add_playback_commands(app, files, halden::open_offscreen, chosen);
  halden::add_hardcopy_command(app, files, halden::open_offscreen, chosen);
  halden::add_print_command(app, files, halden::open_offscreen, chosen);
  halden::add_export_command(app, files, chosen);
  add_version_flag(app);
  try {
    parse(app, argc, argv);
  } catch (const CLI::ParseError& end) {
    return end_without_command(app, end);
  }
  return chosen(halden::open_qt_session);
}
