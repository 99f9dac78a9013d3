#include <algorithm>

#include "../scenario/program_test_base.h"
#include "cli/record_command.h"
#include "noted_terminal.h"

namespace halden {
namespace {

struct RecordRuns : testing::Test {
  RecordRuns() { options.file = "d/a.csv"; }

  void start() {
    journey.start(1);
    run.emplace(journey.program(), options, terminal);
    run->start();
  }

  // Half a second at a time, as the command looks after it.
  void run_for(double seconds) {
    for (double passed_s = 0; passed_s < seconds && terminal.ended.empty(); passed_s += 0.5) {
      journey.world.run_for(0.5);
      run->check_progress();
    }
  }

  std::ptrdiff_t lines() {
    const std::string& bytes = journey.world.files.contents["d/a.csv"];
    return std::count(bytes.begin(), bytes.end(), '\n');
  }

  Journey journey;
  RecordOptions options;
  NotedTerminal terminal;
  std::optional<RecordRun> run;
};

TEST_F(RecordRuns, EndOnceAtTheNumberOfRecords) {
  options.sample_s = 3;
  options.records = 4;
  start();
  run_for(60);
  run->finish();
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_EQ(terminal.printed, std::vector<std::string>{"file=d/a.csv\nrecords=4\n"});
  EXPECT_EQ(lines(), 2 + 4);
}

TEST_F(RecordRuns, EndAtTheTime) {
  options.duration_s = 10;
  start();
  run_for(60);
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_EQ(lines(), 2 + 5) << "five instants in ten seconds";
}

TEST_F(RecordRuns, AFileThatCannotBeWrittenIsTold) {
  journey.world.files.folder_failures["d/"] = FileFailure::forbidden;
  start();
  EXPECT_EQ(terminal.ended, "d/a.csv: no permission.");
}

TEST_F(RecordRuns, LinesThatWaitAreToldAndRescuedAtTheEnd) {
  start();
  run_for(3);
  journey.world.files.folder_failures["d/"] = FileFailure::disk_full;
  run_for(4);
  EXPECT_EQ(terminal.notes, std::vector<std::string>{"recording: 1 line, 1 waiting (disk full)"});
  run->finish();
  const std::string where =
      "Recorded lines that could not be written are kept in work/halden-rescued-power.csv";
  EXPECT_EQ(terminal.ended, where);
  RecordRun(journey.program(), {}, terminal).start();
  EXPECT_EQ(terminal.notes.back(), where) << "as long as the file lies there";
}

TEST_F(RecordRuns, AMeterInHarmonicsModeIsRefused) {
  journey.meter.settings().mode = simulator::MeterMode::harmonics;
  start();
  EXPECT_EQ(terminal.ended, "The meter is in harmonics mode: press its POWER button and try again.");
  EXPECT_TRUE(journey.world.files.contents.empty());
}

}  // namespace
}  // namespace halden
