// What is plotted of one quantity of a power data file, worked out while the file is read: it is never held
// in memory, and a plot has at most 3600 points whatever the length of the file.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "filetools/power_plot/plot_plan.h"
#include "filetools/reading_progress.h"
#include "formats/power_reader.h"
#include "platform/files.h"

namespace halden {

// A record without a reading (the meter was silent, over range, not a whole record) counts as 0, or is left
// out.
enum class MissingReadings { as_zero, left_out };

// One record, or a group of adjacent ones.
struct PlotPoint {
  std::size_t records = 0;
  std::size_t readings = 0;
  double largest = 0;  // of the readings
  double smallest = 0;
  std::string date, time;  // of the first record, as they stand there; empty when it has none

  // What is drawn; nothing when there are no readings and these are left out.
  std::optional<double> maximum(MissingReadings missing) const;
  std::optional<double> minimum(MissingReadings missing) const;
};

struct PowerPlot {
  std::string path;
  PowerSettings settings;
  std::size_t choice = 0;        // in plot_choices
  std::size_t record_count = 0;  // of the file
  RecordRange range;             // what of it is plotted
  std::size_t record_step = 1;   // records per point; the last point may have fewer
  bool is_envelope = false;      // maximum and minimum of each point
  int prefix = 0;                // the exponent of the unit's prefix
  std::vector<PlotPoint> points;
  PlotPoint whole;               // all points in one; its date and time are the first ones plotted
  double sum = 0;                // of all readings
  std::size_t header_lines = 0;  // plotted: those of a recording that was continued
  std::size_t lost_records = 0;  // plotted, but neither whole records nor header lines
  std::string last_date, last_time;

  // Statistics are for short files, and then also for each part of them.
  bool has_statistics() const { return record_count < records_of_envelope; }

  std::size_t without_reading() const { return whole.records - whole.readings; }
  std::optional<double> mean(MissingReadings missing) const;

  // The numbers of a point's first and last record.
  RecordRange records_of(std::size_t point) const;
};

struct PlotRequest {
  std::string path;
  std::optional<std::size_t> choice{};  // absent: the file's first quantity
  WantedRecords wanted{};
  std::optional<int> prefix{};  // of the unit; absent: that of the first plotted record with digits
};

// Either a plot, or what the user is told instead, or neither after a cancel.
struct PlotOutcome {
  std::shared_ptr<const PowerPlot> plot{};
  Message refusal{};
};

PlotOutcome read_power_plot(Files& files, const PlotRequest& request, const FileProgress& progress = {});

// Told when a file of 3600 records or more is plotted.
inline constexpr std::string_view no_statistics_text = "Records more than 3600, STATIStics function disabled";

}  // namespace halden
