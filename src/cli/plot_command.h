// `haldenctl plot`: draws a quantity of a power data file over time into a picture. It needs no meter and no
// display.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "chart/chart.h"
#include "cli/command.h"
#include "cli/plot_options.h"
#include "platform/offscreen.h"

namespace halden {

// By a caption of the Status menu, in any case: "Mean and MinMax"; "mean-and-minmax" is easier to type.
std::optional<Statistics> read_statistics(std::string_view text);

// As the window PlotFile draws it, with the line about file and records as its title.
Chart chart_of_file(std::shared_ptr<const PowerPlot> plot, Statistics statistics, MissingReadings missing);

// Adds the command; it reads from `files`, which outlive the run.
void add_plot_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                      ChosenCommand& chosen);

}  // namespace halden
