// The chart of a power plot.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart.h"
#include "filetools/power_plot/power_plot.h"
#include "screen/language.h"

namespace halden {

enum class PlotLabels { time, sequence };

// What the user has chosen about the chart.
struct PlotLook {
  std::string x_title = "Time";
  std::string y_title;
  PlotLabels labels = PlotLabels::time;
  Grid grid = Grid::horizontal;
  std::optional<double> y_low, y_high;
  Statistics statistics = Statistics::none;  // drawn where the plot has statistics
  MissingReadings missing = MissingReadings::as_zero;
  ChartColours colours = ChartColours::colour;
  std::size_t subject = 0;  // Chart::subject
};

// "P_SYS (KW)": the Y title of a new plot.
std::string plot_y_title(const PowerPlot& plot);

// The values of the points, or of an envelope their maxima; NaN where nothing is drawn.
std::vector<double> plotted_maxima(const PowerPlot& plot, MissingReadings missing);

// One line; of an envelope two, maximum and minimum.
Chart power_chart(std::shared_ptr<const PowerPlot> plot, const PlotLook& look, Language language);

}  // namespace halden
