// Which part of a power data file is plotted, as options of a command.
#pragma once

#include <memory>
#include <string>

#include "filetools/power_plot/power_plot.h"
#include "filetools/power_plot/record_times.h"
#include "platform/files.h"

namespace CLI {
class App;
}

namespace halden {

struct PlotOptions {
  std::string file;    // UTF-8
  std::string column;  // a caption of the Select menu; empty for the file's first quantity
  PlaceRange places;
  MissingReadings missing = MissingReadings::as_zero;
};

// Adds FILE, --column, --from, --to and --leave-out. `options` lives until the command line is parsed.
void add_plot_options(CLI::App& command, PlotOptions& options);

// Either the plot or, in one sentence, why there is none.
struct PlotResult {
  std::shared_ptr<const PowerPlot> plot;
  std::string failure;
};
PlotResult read_plot(Files& files, const PlotOptions& options);

}  // namespace halden
