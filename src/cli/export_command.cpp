#include "cli/export_command.h"

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>

#include "cli/process_io.h"
#include "filetools/export/export_texts.h"
#include "filetools/export/number_export.h"

namespace halden {

namespace {

struct ExportArguments {
  ExportRequest request;
  bool separator_given = false;
};

std::string check_target(const std::string& path) {
  return table_format(path) ? std::string()
                            : "expected a name that ends in .csv or .json, not \"" + path + "\"";
}

template <typename Value>
CLI::Option* add_choice(CLI::App& command, const char* name, const char* type, Value& value,
                        const std::map<std::string, Value>& choices, const char* description) {
  std::vector<std::string> names;
  for (const auto& [choice, meaning] : choices) names.push_back(choice);
  return command
      .add_option_function<std::string>(
          name, [&value, choices](const std::string& choice) { value = choices.at(choice); }, description)
      ->type_name(type)
      ->check(CLI::IsMember(names).description(""));
}

// Says on the error channel how much is done, if somebody watches it.
class ProgressLine {
 public:
  bool show(std::uint64_t done, std::uint64_t whole) {
    const std::string text = whole > 0 ? std::to_string(done * 100 / whole) + " %" : std::string();
    if (remarks_are_watched() && text != shown_) write_remark("\r" + text);
    shown_ = text;
    return !interrupted();
  }
  ~ProgressLine() {
    if (remarks_are_watched() && !shown_.empty()) write_remark("\r     \r");
  }
  ProgressLine() = default;
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

 private:
  std::string shown_;
};

ExportResult export_with_progress(Files& files, const ExportRequest& request) {
  note_interruptions();
  ProgressLine line;
  return export_numbers(files, request,
                        [&line](std::uint64_t done, std::uint64_t whole) { return line.show(done, whole); });
}

int run_export(Files& files, const ExportArguments& arguments) {
  ExportRequest request = arguments.request;
  ExportOptions& options = request.options;
  options.format = *table_format(request.target);
  if (options.decimal == DecimalMark::comma && !arguments.separator_given)
    options.separator = Separator::semicolon;
  const ExportResult result = export_with_progress(files, request);
  write_remark(export_sentence(result, request, Language::english) + ".\n");
  return result.outcome == ExportOutcome::written ? exit_done : exit_failed;
}

void check_together(const ExportArguments& arguments) {
  const ExportOptions& options = arguments.request.options;
  if (options.decimal != DecimalMark::comma) return;
  if (arguments.separator_given && options.separator == Separator::comma)
    throw CLI::ValidationError("--separator", "a decimal comma needs a semicolon between the values");
  if (table_format(arguments.request.target) == TableFormat::json)
    throw CLI::ValidationError("--decimal", "numbers in JSON have a decimal point");
}

}  // namespace

void add_export_command(CLI::App& app, Files& files, ChosenCommand& chosen) {
  const auto arguments = std::make_shared<ExportArguments>();
  ExportRequest& request = arguments->request;
  ExportOptions& options = request.options;
  CLI::App* const command =
      app.add_subcommand("export", "Write a data file as a table of numbers for other programs");
  command->add_option("file", request.source, "The data file")->type_name("FILE")->required();
  command->add_option("--out", request.target, "The result, CSV or JSON by its ending")
      ->type_name("FILE.csv|FILE.json")
      ->required()
      ->check(check_target);
  add_choice<DecimalMark>(*command, "--decimal", "point|comma", options.decimal,
                          {{"point", DecimalMark::point}, {"comma", DecimalMark::comma}},
                          "The decimal mark; a comma has a semicolon between the values");
  CLI::Option* const separator = add_choice<Separator>(
      *command, "--separator", "comma|semicolon", options.separator,
      {{"comma", Separator::comma}, {"semicolon", Separator::semicolon}}, "What stands between the values");
  add_choice<DateOrder>(*command, "--dates", "mdy|dmy|ymd", options.dates,
                        {{"mdy", DateOrder::month_day_year},
                         {"dmy", DateOrder::day_month_year},
                         {"ymd", DateOrder::year_month_day}},
                        "The order of day and month where the file does not settle it");
  command->add_option("--range", options.current_range, "Of waveforms of currents: the meter's current range")
      ->type_name("0..3")
      ->check(CLI::Range(0, 3).description(""));
  command->add_option("--clamp", options.current_scale, "Of waveforms of currents: the factor of the clamp")
      ->type_name("1.0|1.2|3.0")
      ->check(CLI::IsMember({1.0F, 1.2F, 3.0F}).description(""));
  command->callback([arguments, separator, &files, &chosen] {
    arguments->separator_given = separator->count() > 0;
    check_together(*arguments);
    chosen = [arguments, &files](const OpenSession&) { return run_export(files, *arguments); };
  });
}

}  // namespace halden
