// The points of a power plot as numbers for other programs, one line a point.
//
//   first_record,last_record,date,time,maximum,minimum,readings,unit
//   1,556,11-22-2026,08:15:02,4.647,4.207,556,KW
#pragma once

#include <string>

#include "filetools/power_plot/power_plot.h"

namespace halden {

// The lines with their line ends. With the readings left out, maximum and minimum of a point without any are
// empty.
std::string points_csv(const PowerPlot& plot, MissingReadings missing);

}  // namespace halden
