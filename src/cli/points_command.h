// `haldenctl points`: prints what is plotted of a power data file, one line a point. It needs no meter.
//
//   first_record,last_record,date,time,maximum,minimum,readings,unit
//   1,556,11-22-2026,08:15:02,4.647,4.207,556,KW
#pragma once

#include <string>

#include "cli/command.h"
#include "filetools/power_plot/power_plot.h"
#include "filetools/power_plot/record_times.h"
#include "platform/files.h"

namespace halden {

struct PointsOptions {
  std::string file;    // UTF-8
  std::string column;  // a caption of the Select menu; empty for the file's first quantity
  PlaceRange places;
  MissingReadings missing = MissingReadings::as_zero;
};

// The lines with their line ends. With the readings left out, maximum and minimum of a point without any are
// empty.
std::string points_csv(const PowerPlot& plot, MissingReadings missing);

// Either the lines or, in one sentence, why there are none.
struct PointsResult {
  std::string lines, failure;
};
PointsResult read_points(Files& files, const PointsOptions& options);

// Adds the command; it reads from `files`, which outlive the run.
void add_points_command(CLI::App& app, Files& files, ChosenCommand& chosen);

}  // namespace halden
