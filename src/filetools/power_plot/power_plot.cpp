#include "filetools/power_plot/power_plot.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "filetools/open_failure.h"
#include "filetools/power_plot/plot_choices.h"

namespace halden {

namespace {

constexpr std::size_t records_between_progress = 4096;
constexpr int most_passes = 3;

// The columns of a quantity, by wiring system.
using Columns = std::array<std::optional<std::size_t>, 4>;

Columns columns_of(std::size_t choice) {
  Columns columns;
  for (std::size_t wiring = 0; wiring < columns.size(); ++wiring)
    columns[wiring] = power_column(Wiring(wiring), static_cast<PowerQuantity>(choice));
  return columns;
}

void add_reading(PlotPoint& point, double value) {
  if (point.readings == 0) point.largest = point.smallest = value;
  point.largest = std::max(point.largest, value);
  point.smallest = std::min(point.smallest, value);
  ++point.readings;
}

void add_points(PlotPoint& whole, const PlotPoint& point) {
  whole.records += point.records;
  if (point.readings == 0) return;
  add_reading(whole, point.largest);
  add_reading(whole, point.smallest);
  whole.readings += point.readings - 2;
}

// Puts the records of one pass over the file into points. When the step is too small for the number of
// records, it stops at the most points a plot can have, and the pass has only counted the records.
class PointCollector {
 public:
  PointCollector(PowerPlot& plot, const PlotRequest& request)
      : plot_(plot), columns_(columns_of(plot.choice)), has_prefix_(request.prefix.has_value()) {
    plot_.prefix = request.prefix.value_or(0);
  }

  void add(const PowerRecordLine& record) {
    if (point_.records == plot_.record_step) finish_point();
    if (point_.records++ == 0) start_point(record.text);
    if (!record.wiring) return add_without_readings(record.text);
    behind_settings_ = false;
    note_times(record.text);
    const std::optional<std::size_t>& column = columns_[table_index(*record.wiring)];
    if (!column) return;
    if (const auto reading = read_field(power_field(record.text, *column))) add_value(*reading);
  }

  // Adds up all points.
  void finish() {
    if (point_.records > 0) finish_point();
    for (const PlotPoint& point : plot_.points) add_points(plot_.whole, point);
    const std::string_view last_times(last_times_.data(), last_times_.size());
    plot_.last_date = date_in_line(last_times);
    plot_.last_time = time_in_line(last_times);
  }

 private:
  // A recording that was continued has a settings line and a line with the names of the columns inside.
  void add_without_readings(std::string_view line) {
    const bool are_names = std::exchange(behind_settings_, read_power_settings(line).wiring.has_value());
    ++(behind_settings_ || are_names ? plot_.header_lines : plot_.lost_records);
    if (has_date_and_time(line)) note_times(line);
  }

  void start_point(std::string_view line) {
    point_.date = date_in_line(line);
    point_.time = time_in_line(line);
  }

  void finish_point() {
    if (plot_.points.size() < most_records_of_part) plot_.points.push_back(std::move(point_));
    point_ = {};
  }

  // A copy, because which record is the last one is known at the end only.
  void note_times(std::string_view line) {
    if (!std::exchange(has_times_, true)) {
      plot_.whole.date = date_in_line(line);
      plot_.whole.time = time_in_line(line);
    }
    std::memcpy(last_times_.data(), line.data(), last_times_.size());
  }

  void add_value(const FieldReading& reading) {
    if (!std::exchange(has_prefix_, true)) plot_.prefix = reading.prefix;
    const double value = value_in(reading, plot_.prefix);
    add_reading(point_, value);
    plot_.sum += value;
  }

  PowerPlot& plot_;
  const Columns columns_;
  PlotPoint point_;
  bool has_prefix_;
  bool has_times_ = false;
  bool behind_settings_ = false;
  std::array<char, date_and_time_length> last_times_{};
};

// The state of reading one file.
struct PlotReading {
  PowerFileReader file;
  const PlotRequest& request;
  const FileProgress& progress;
  PowerPlot plot;
  bool has_whole_record = false;
  bool cancelled = false;
};

std::size_t step_for(const WantedRecords& wanted, std::size_t record_count) {
  const RecordRange range = range_in(wanted, record_count);
  return record_step(range.last >= range.first ? range.count() : 0, wanted.is_part());
}

// Reads all records and plots the wanted ones with the step in `reading.plot`, or, where it is 0, with the
// one of a file in which all records are whole.
void read_records(PlotReading& reading) {
  PowerPlot& plot = reading.plot;
  const RecordRange wanted = range_in(reading.request.wanted, static_cast<std::size_t>(-1));
  PointCollector collector(plot, reading.request);
  PowerRecordLine record;
  while (reading.file.next(record)) {
    const std::size_t number = reading.file.records_read();
    if (plot.record_step == 0)
      plot.record_step = step_for(reading.request.wanted, reading.file.estimated_records(record));
    reading.has_whole_record = reading.has_whole_record || record.wiring;
    if (number >= wanted.first && number <= wanted.last) collector.add(record);
    if (number % records_between_progress != 0 || !reading.progress) continue;
    reading.cancelled = !reading.progress(reading.file.position(), reading.file.length());
    if (reading.cancelled) return;
  }
  plot.record_count = reading.file.records_read();
  collector.finish();
}

Message message_of(std::string_view text) { return {std::string(text), {}}; }

PlotOutcome refused(std::string_view text) { return {{}, message_of(text)}; }

// Without text when the file can be plotted.
Message refusal_of(const PlotReading& reading) {
  const std::size_t count = reading.plot.record_count;
  if (reading.file.failed()) return message_of(open_failure_message(FileFailure::failed));
  if (!reading.has_whole_record) return message_of("Zero Data Length");
  if (count == 1) return message_of("Only one record, can not plot.  Please use VIEW to review your record.");
  return check_range(range_in(reading.request.wanted, count), count).refusal;
}

// One pass over the file. `step` 0 stands for a guess.
PlotOutcome read_once(OpenedFile opened, const PlotRequest& request, const FileProgress& progress,
                      std::size_t step) {
  if (!opened.reader) return refused(open_failure_message(opened.failure));
  if (request.choice.value_or(0) >= plot_choices.size()) return refused("RECORD INDEX > 35");
  PlotReading reading{PowerFileReader(std::move(opened.reader)), request, progress, {}};
  PowerPlot& plot = reading.plot;
  plot.settings = reading.file.settings();
  if (!plot.settings.wiring) return refused("Not a valid data file");
  plot.path = request.path;
  plot.choice = request.choice.value_or(first_choice(*plot.settings.wiring));
  plot.record_step = step;
  read_records(reading);
  if (reading.cancelled) return {};
  if (Message refusal = refusal_of(reading); !refusal.text.empty()) return {{}, std::move(refusal)};
  plot.range = range_in(request.wanted, plot.record_count);
  plot.is_envelope = plot.record_step > 1;
  return {std::make_shared<const PowerPlot>(std::move(plot)), {}};
}

double with_zero(double value, const PlotPoint& point, double (*of)(double, double)) {
  return point.readings < point.records ? of(value, 0.0) : value;
}

}  // namespace

std::optional<double> PlotPoint::maximum(MissingReadings missing) const {
  if (missing == MissingReadings::as_zero)
    return with_zero(largest, *this, [](double a, double b) { return std::max(a, b); });
  return readings > 0 ? std::optional(largest) : std::nullopt;
}

std::optional<double> PlotPoint::minimum(MissingReadings missing) const {
  if (missing == MissingReadings::as_zero)
    return with_zero(smallest, *this, [](double a, double b) { return std::min(a, b); });
  return readings > 0 ? std::optional(smallest) : std::nullopt;
}

std::optional<double> PowerPlot::mean(MissingReadings missing) const {
  const std::size_t count = missing == MissingReadings::as_zero ? whole.records : whole.readings;
  if (count == 0) return std::nullopt;
  return sum / static_cast<double>(count);
}

RecordRange PowerPlot::records_of(std::size_t point) const {
  const std::size_t first = range.first + point * record_step;
  return {first, std::min(first + record_step - 1, range.last)};
}

// How many records a point stands for depends on how many there are. That is guessed from the length of the
// file; only where the guess was wrong, or the file has grown meanwhile, it is read again.
PlotOutcome read_power_plot(Files& files, const PlotRequest& request, const FileProgress& progress) {
  PlotOutcome outcome;
  std::size_t step = 0;
  for (int pass = 0; pass < most_passes; ++pass) {
    outcome = read_once(files.open(request.path), request, progress, step);
    if (!outcome.plot) return outcome;
    step = step_for(request.wanted, outcome.plot->record_count);
    if (step == outcome.plot->record_step) break;
  }
  return outcome;
}

}  // namespace halden
