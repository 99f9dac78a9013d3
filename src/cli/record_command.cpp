#include "cli/record_command.h"

#include <CLI/CLI.hpp>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/command.h"
#include "cli/recorded_files.h"
#include "cli/session.h"
#include "live/sampling_time.h"
#include "screen/captions.h"

namespace halden {

namespace {

constexpr int look_period_ms = 500;
constexpr int most_records = 1'000'000'000;
constexpr double longest_duration_s = 1.0e9;

int refuse(const std::string& file) {
  std::fprintf(stderr, "%s exists. Give --append to write behind what it holds.\n", file.c_str());
  return exit_failed;
}

int run_record(const PortArgument& port, const RecordOptions& options) {
  RecordedFiles files;
  if (options.existing == ExistingFile::refused && files.exists(options.file)) return refuse(options.file);
  Session session(port, Interruption::spoils_it, files);
  RecordRun run(session.program(), options, session);
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &session.world(),
                   [&] { session.world().run([&] { run.look_after(); }); });
  look.start(look_period_ms);
  return session.run([&] {
    session.on_interruption([&] { run.finish(); });
    run.start();
  });
}

}  // namespace

RecordRun::RecordRun(Program& program, const RecordOptions& options, Terminal& terminal)
    : program_(program), options_(options), terminal_(terminal) {}

void RecordRun::start() {
  if (program_.status.meter_mode != power_mode) {
    terminal_.failed("The meter is in harmonics mode: press its POWER button and try again.");
    return;
  }
  for (const std::string& path : program_.rescue.found()) terminal_.note(rescued_sentence(path, english));
  set_sampling_time(options_.sample_s, program_.sample_clock, program_.screen.meter_rec);
  program_.recording.begin_data_file(options_.file);
  if (program_.recording.file().failure() != FileFailure::none) {
    terminal_.failed(options_.file + ": " + write_failure_text(program_.recording.file().failure(), english) +
                     ".");
    return;
  }
  program_.recording.start_automatic();
  program_.live_steps.after_power_frame = [this] { stop_at_the_last_record(); };
  began_s_ = program_.platform.clock.monotonic_s();
  runs_ = true;
}

void RecordRun::stop_at_the_last_record() {
  if (options_.records && std::cmp_greater_equal(program_.recording.records(), *options_.records)) finish();
}

void RecordRun::look_after() {
  if (!runs_) return;
  const DataFile& file = program_.recording.file();
  if (std::exchange(lines_wait_, file.lines_waiting() > 0) != lines_wait_)
    terminal_.note(recording_status_text(program_.recording.state(), file, english));
  if (options_.duration_s && program_.platform.clock.monotonic_s() - began_s_ >= *options_.duration_s)
    finish();
}

void RecordRun::finish() {
  if (!std::exchange(runs_, false)) return;
  const std::string elsewhere = program_.recording.end_recording();
  const DataFile& file = program_.recording.file();
  if (file.lines_waiting() > 0) {
    terminal_.failed(recording_status_text(program_.recording.state(), file, english));
    return;
  }
  terminal_.print(
      formatted({{"file", options_.file}, {"records", program_.recording.records()}}, options_.format));
  if (elsewhere.empty())
    terminal_.done();
  else
    terminal_.failed(elsewhere);
}

void add_record_command(CLI::App& app, ChosenCommand& chosen) {
  struct Typed {
    CommonOptions common;
    RecordOptions record;
  };
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command =
      app.add_subcommand("record",
                         "Record the readings of the meter's power mode to a data file until "
                         "interrupted; while the meter is silent, lines say so");
  add_common_options(*command, typed->common);
  RecordOptions& record = typed->record;
  command->add_option("--out", record.file, "The data file")->type_name("FILE")->required();
  command->add_option("--sample", record.sample_s, "Seconds from one record to the next; 2 when not given")
      ->type_name("SECONDS")
      ->check(CLI::Range(2, 32767).description(""));
  CLI::Option* const records = command->add_option("--records", record.records, "End after that many records")
                                   ->type_name("N")
                                   ->check(CLI::Range(1, most_records).description(""));
  command->add_option("--duration", record.duration_s, "End after that time")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.0, longest_duration_s).description(""))
      ->excludes(records);
  command->add_flag_callback(
      "--append", [&record] { record.existing = ExistingFile::appended_to; },
      "Write behind what the file holds already");
  command->callback([typed, &chosen] {
    typed->record.format = typed->common.format;
    chosen = [typed] { return run_record(typed->common.port, typed->record); };
  });
}

}  // namespace halden
