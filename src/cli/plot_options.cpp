#include "cli/plot_options.h"

#include <CLI/CLI.hpp>
#include <optional>

#include "filetools/power_plot/plot_choices.h"

namespace halden {

namespace {

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

void add_place(CLI::App& command, const char* name, std::optional<RecordPlace>& place,
               const char* description) {
  command
      .add_option_function<std::string>(
          name, [&place](const std::string& text) { place = read_record_place(text); }, description)
      ->type_name("NUMBER|TIME")
      ->check(check_place);
}

}  // namespace

void add_plot_options(CLI::App& command, PlotOptions& options) {
  command.add_option("file", options.file, "The data file")->type_name("FILE")->required();
  command.add_option("--column", options.column, "The quantity; the file's first one if none is given")
      ->type_name("NAME")
      ->check(check_column);
  add_place(command, "--from", options.places.first, "The first record");
  add_place(command, "--to", options.places.last, "The last record");
  command.add_flag_callback(
      "--leave-out", [&options] { options.missing = MissingReadings::left_out; },
      "Leave out records without a reading instead of counting them as 0");
}

PlotResult read_plot(Files& files, const PlotOptions& options) {
  PlotRequest request{options.file};
  if (!options.column.empty()) request.choice = plot_choice(options.column);
  request.wanted = find_records(files, options.file, options.places);
  const PlotOutcome outcome = read_power_plot(files, request);
  if (!outcome.plot) return {nullptr, outcome.refusal.text};
  if (!is_offered(outcome.plot->choice, *outcome.plot->settings.wiring))
    return {nullptr, "The file has no column " + options.column + "."};
  return {outcome.plot, {}};
}

}  // namespace halden
