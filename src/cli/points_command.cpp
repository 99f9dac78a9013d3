#include "cli/points_command.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/plot_options.h"
#include "cli/process_io.h"
#include "cli/session.h"
#include "filetools/power_plot/points_csv.h"
#include "platform/process.h"

namespace halden {

namespace {

int run_points(Files& files, const PlotOptions& options) {
  const PlotResult result = read_plot(files, options);
  if (!result.plot) return end_with_failure(result.failure);
  return print_and_end(points_csv(*result.plot, options.missing));
}

}  // namespace

void add_points_command(CLI::App& app, Files& files, ChosenCommand& chosen) {
  const auto options = std::make_shared<PlotOptions>();
  CLI::App* const command =
      app.add_subcommand("points", "Print what is plotted of a power data file, as CSV");
  add_plot_options(*command, *options);
  command->callback([options, &files, &chosen] {
    chosen = [options, &files](const OpenSession&) { return run_points(files, *options); };
  });
}

}  // namespace halden
