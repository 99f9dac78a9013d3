// What the program says about a power plot beside the chart, in both languages.
#pragma once

#include <cstddef>
#include <string>

#include "chart/statistics.h"
#include "filetools/power_plot/power_plot.h"
#include "screen/language.h"

namespace halden {

// "day.csv · 3P4W · CT 1 · VT 1 · 72000 records · 5 lost · 11-22-2026 08:15:02 to 11-24-2026 00:15:00"; of a
// part "records 1 to 600 of 72000", and behind the lost ones "2 header lines" where it has some.
std::string plot_line(const PowerPlot& plot, Language language);

// "201 records without a reading are drawn as 0"; empty when there are none.
std::string missing_readings_line(const PowerPlot& plot, MissingReadings missing, Language language);

// "Mean 5.602 KW · minimum 1.204 KW · maximum 9.873 KW · standard deviation 2.1 KW · best fit 4.1 KW → 6.2
// KW"; without the last two for an envelope. Empty when there is nothing to count.
std::string statistics_line(const PowerPlot& plot, MissingReadings missing, Language language);

// What the cursor says about a point.
std::string point_text(const PowerPlot& plot, std::size_t point, MissingReadings missing, Language language);

// In the legend.
StatisticNames statistic_names(Language language);

}  // namespace halden
