#include "cli/points_command.h"

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <memory>
#include <optional>

#include "cli/process_io.h"
#include "cli/session.h"
#include "filetools/power_plot/plot_choices.h"
#include "platform/process.h"

namespace halden {

namespace {

constexpr std::string_view head = "first_record,last_record,date,time,maximum,minimum,readings,unit\n";

void add_value(std::string& lines, const std::optional<double>& value) {
  std::array<char, 32> digits;
  if (value) lines.append(digits.data(), std::to_chars(digits.data(), digits.data() + 32, *value).ptr);
  lines += ',';
}

std::string check_column(const std::string& caption) {
  return plot_choice(caption)
             ? std::string()
             : "expected a caption of the Select menu such as V12, I1 or P_SYS, not \"" + caption + "\"";
}

std::string check_place(const std::string& text) {
  return read_record_place(text)
             ? std::string()
             : "expected a record number or a time such as 12:30:44 or \"2024-03-15 12:30\", not \"" + text +
                   "\"";
}

int run_points(Files& files, const PointsOptions& options) {
  const PointsResult result = read_points(files, options);
  if (result.failure.empty()) return print_and_end(result.lines);
  write_remark(result.failure + "\n");
  return exit_failed;
}

void add_place(CLI::App& command, const char* name, std::optional<RecordPlace>& place,
               const char* description) {
  command
      .add_option_function<std::string>(
          name, [&place](const std::string& text) { place = read_record_place(text); }, description)
      ->type_name("NUMBER|TIME")
      ->check(check_place);
}

}  // namespace

std::string points_csv(const PowerPlot& plot, MissingReadings missing) {
  const std::string unit = unit_of(plot.choice, plot.prefix) + "\n";
  std::string lines(head);
  for (std::size_t index = 0; index < plot.points.size(); ++index) {
    const PlotPoint& point = plot.points[index];
    const RecordRange records = plot.records_of(index);
    lines += std::to_string(records.first) + "," + std::to_string(records.last) + ",";
    lines += point.date + "," + point.time + ",";
    add_value(lines, point.maximum(missing));
    add_value(lines, point.minimum(missing));
    lines += std::to_string(point.readings) + "," + unit;
  }
  return lines;
}

PointsResult read_points(Files& files, const PointsOptions& options) {
  PlotRequest request{options.file};
  if (!options.column.empty()) request.choice = plot_choice(options.column);
  request.wanted = find_records(files, options.file, options.places);
  const PlotOutcome outcome = read_power_plot(files, request);
  if (!outcome.plot) return {{}, outcome.refusal.text};
  if (!is_offered(outcome.plot->choice, *outcome.plot->settings.wiring))
    return {{}, "The file has no column " + options.column + "."};
  return {points_csv(*outcome.plot, options.missing), {}};
}

void add_points_command(CLI::App& app, Files& files, ChosenCommand& chosen) {
  const auto options = std::make_shared<PointsOptions>();
  CLI::App* const command =
      app.add_subcommand("points", "Print what is plotted of a power data file, as CSV");
  command->add_option("file", options->file, "The data file")->type_name("FILE")->required();
  command->add_option("--column", options->column, "The quantity; the file's first one if none is given")
      ->type_name("NAME")
      ->check(check_column);
  add_place(*command, "--from", options->places.first, "The first record");
  add_place(*command, "--to", options->places.last, "The last record");
  command->add_flag_callback(
      "--leave-out", [options] { options->missing = MissingReadings::left_out; },
      "Leave out records without a reading instead of counting them as 0");
  command->callback([options, &files, &chosen] {
    chosen = [options, &files](const OpenSession&) { return run_points(files, *options); };
  });
}

}  // namespace halden
