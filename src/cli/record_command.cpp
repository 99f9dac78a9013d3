#include "cli/record_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr int check_period_ms = 500;
constexpr int most_records = 1'000'000'000;
constexpr double longest_duration_s = 1.0e9;

int run_record(const OpenSession& open, const PortArgument& port, const RecordOptions& options) {
  const auto session = open(port, Interruption::is_failure, FileAccess::disk);
  if (is_refused(session->program().platform.files, options.file, options.existing)) return exit_failed;
  RecordRun run(session->program(), options, *session);
  session->every(check_period_ms, [&] { run.check_progress(); });
  return session->run([&] {
    if (!open_view(options.view, *session)) return;
    session->on_interruption([&] { run.finish(); });
    run.start();
  });
}

}  // namespace

RecordRun::RecordRun(Program& program, const RecordOptions& options, Terminal& terminal)
    : program_(program), options_(options), terminal_(terminal) {}

void RecordRun::start() {
  if (options_.orders && program_.link.status.meter_mode != harmonics_mode)
    return terminal_.failed(needs_harmonics_mode);
  if (program_.live.views.to_record() == nullptr)
    return terminal_.failed("The meter is in a mode that is not known.");
  for (const std::string& path : program_.live.rescue.found())
    terminal_.note(rescued_sentence(path, Language::english));
  program_.live.sample_clock.set_sampling_time(options_.sample_s);
  if (options_.orders == OrderValues::angle) program_.shared.meter_rec.click("chart_angle");
  if (!begin_file()) return;
  program_.live.recording.start_automatic();
  program_.live.monitor.add_listener(*this);
  began_s_ = program_.platform.clock.monotonic_s();
  runs_ = true;
}

bool RecordRun::begin_file() {
  Recording& recording = program_.live.recording;
  recording.begin_data_file(options_.file);
  if (program_.live.sample_clock.sample_time_s() > options_.sample_s)
    terminal_.note(std::string(shortest_waveform_sampling_text));
  const FileFailure failure = recording.file().failure();
  if (failure != FileFailure::none)
    terminal_.failed(options_.file + ": " + std::string(write_failure_text(failure, Language::english)) +
                     ".");
  return failure == FileFailure::none;
}

void RecordRun::frame_shown() {
  other_mode_noted_ = false;
  if (options_.records && std::cmp_greater_equal(program_.live.recording.records(), *options_.records))
    finish();
}

void RecordRun::check_progress() {
  if (!runs_) return;
  note_trouble();
  if (options_.duration_s && program_.platform.clock.monotonic_s() - began_s_ >= *options_.duration_s)
    finish();
}

void RecordRun::note_trouble() {
  const DataFile& file = program_.live.recording.file();
  const RecordingStatus status = program_.live.recording.status();
  const Trouble now = {file.lines_waiting() > 0, status.other_source};
  if (std::exchange(trouble_, now) != now)
    terminal_.note(recording_status_text(status, file, Language::english));
  if (const std::string other_mode = other_mode_sentence(program_);
      !other_mode.empty() && !std::exchange(other_mode_noted_, true))
    terminal_.note(other_mode);
}

void RecordRun::finish() {
  if (!std::exchange(runs_, false)) return;
  const std::string not_in_file = program_.live.recording.end_recording();
  if (program_.live.recording.file().lines_given_up() > 0) return terminal_.failed(not_in_file + ".");
  terminal_.print(
      formatted({{"file", options_.file}, {"records", program_.live.recording.records()}}, options_.format));
  if (not_in_file.empty())
    terminal_.done();
  else
    terminal_.failed(not_in_file);
}

void add_record_command(CLI::App& app, ChosenCommand& chosen) {
  struct Typed {
    CommonOptions common;
    RecordOptions record;
  };
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command =
      app.add_subcommand("record",
                         "Record the readings of the meter to a data file until interrupted; while "
                         "the meter is silent, lines say so. In its harmonics mode the file holds spectra");
  add_common_options(*command, typed->common);
  RecordOptions& record = typed->record;
  add_output_options(*command, "The data file", record.file, record.existing);
  command
      ->add_option("--sample", record.sample_s,
                   "Seconds from one record to the next; 2 when not given, at least 4 for waveforms")
      ->type_name("SECONDS")
      ->check(CLI::Range(2, 32767).description(""));
  CLI::Option* const records = command->add_option("--records", record.records, "End after that many records")
                                   ->type_name("N")
                                   ->check(CLI::Range(1, most_records).description(""));
  command->add_option("--duration", record.duration_s, "End after that time")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.0, longest_duration_s).description(""))
      ->check([](const std::string& text) {  // a range check lets "nan" through
        return text.find_first_of("0123456789") == std::string::npos ? "expected a number, not " + text
                                                                     : std::string();
      })
      ->excludes(records);
  add_waveform_flag(*command, record.view,
                    "In harmonics mode: record waveforms, 1024 samples each, and no spectra");
  command
      ->add_option_function<std::string>(
          "--option",
          [&record](const std::string& name) {
            record.orders = name == "angle" ? OrderValues::angle : OrderValues::percent;
          },
          "What is recorded of the orders of a spectrum; percent when not given")
      ->type_name("percent|angle")
      ->check(CLI::IsMember({"percent", "angle"}).description(""))
      ->excludes("--waveform");
  command->callback([typed, &chosen] {
    typed->record.format = typed->common.format;
    chosen = [typed](const OpenSession& open) { return run_record(open, typed->common.port, typed->record); };
  });
}

}  // namespace halden
