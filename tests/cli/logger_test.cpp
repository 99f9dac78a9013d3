// The commands of the meter's memory beside a simulated meter with three files: power, harmonics, hardcopy.
#include <CLI/CLI.hpp>
#include <algorithm>

#include "../scenario/program_test_base.h"
#include "cli/logger_progress.h"
#include "cli/logger_run.h"
#include "noted_terminal.h"
#include "simulator/stored_files.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct LoggerRuns : testing::Test {
  LoggerRuns() { restart(); }

  void restart() {
    run.reset();
    terminal = {};
    files().clear();
    journey.meter.memory() = simulator::small_memory();
    journey.start(1);
    journey.world.dialogs.messages.clear();
    journey.world.run_for(0.1);  // the request of the live poll is sent
    began_s = journey.now_s();
    const auto last_message = [this] {
      const Texts texts = journey.world.dialogs.message_texts();
      return texts.empty() ? std::string() : texts.back();
    };
    run.emplace(journey.program(), last_message, Format::text, terminal);
  }

  void interrupt_after(double seconds) {
    journey.world.user_does(seconds, [this] { run->interrupt(); });
  }
  std::string received() const { return journey.received(began_s); }
  std::map<std::string, std::string>& files() { return journey.world.files.contents; }

  Journey journey;
  NotedTerminal terminal;
  double began_s = 0;
  std::optional<LoggerRun> run;
};

TEST_F(LoggerRuns, TheListSelectsEveryFileAndTheFormerOneAgain) {
  journey.meter.memory().select(1);
  run->list();
  EXPECT_EQ(terminal.ended, "done");
  const std::string recorded = "start=2026-03-05T08:15:00\nsystem=1P2W\nhz=50\nct=1\npt=1\nsec=2\n";
  EXPECT_EQ(terminal.printed, (Texts{"index=0\nkind=Power\n" + recorded + "\n",
                                     "index=1\nkind=Harmonics\n" + recorded + "channel=V1\n\n",
                                     "index=2\nkind=Hardcopy\n" + recorded + "\n"}));
  EXPECT_EQ(received(), "?R00\r?R01\r?R02\r?R01\r?");
  restart();
  journey.meter.memory().select(1);
  interrupt_after(12);
  run->list();
  EXPECT_EQ(terminal.ended, "It was interrupted.");
  EXPECT_EQ(received(), "?R00\r?R01\r?") << "the former one is selected also then";
}

TEST_F(LoggerRuns, WithoutFilesThereIsNothingToListFetchOrClear) {
  const std::function<void()> commands[] = {[this] { run->list(); }, [this] { run->clear(); },
                                            [this] { run->download_all("d"); },
                                            [this] { run->download("d/a.csv", std::nullopt); }};
  std::string ends;
  for (const auto& command : commands) {
    restart();
    journey.meter.memory().erase();
    command();
    ends += terminal.ended + "|";
    EXPECT_EQ(received(), "?");
    EXPECT_TRUE(files().empty() && terminal.printed.empty());
  }
  EXPECT_EQ(ends, "done|done|done|No Data Recorded|");
}

TEST_F(LoggerRuns, ADownloadIsWholeOrSaysWhyNot) {
  simulator::Faults cut, empty, other, silent;
  cut.file.cut_after = 25;
  empty.file.cut_after = 0;
  other.file.wrong_index = 2;
  silent.silence = true;
  const std::tuple<simulator::Faults, std::optional<int>, std::string, std::string> rows[] = {
      {{}, {}, "kind=Power\nrecords=3\nbytes=30\n", "done"},
      {{}, 1, "kind=Harmonics\nrecords=1\nbytes=128\n", "done"},
      {cut, {}, "kind=Power\nrecords=2\nbytes=25\n", "d/a: 2 records, bytes were lost: download again."},
      {empty, {}, "", "d/a: the meter sent nothing."},
      {other, 1, "", "The meter has selected file 2 instead of file 1."},
      {{}, 3, "", "The meter holds 3 files, numbered from 0: there is no file 3."},
      {silent, {}, "", status_failed}};
  for (const auto& [faults, number, printed, ended] : rows) {
    restart();
    journey.meter.faults() = faults;
    run->download("d/a", number);
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_EQ(terminal.printed, printed.empty() ? Texts() : Texts{"file=d/a\n" + printed}) << ended;
    journey.meter.faults() = {};
  }
}

// 7680 bytes take eight seconds, from the 12th on. The meter goes on sending, so that its silence is waited
// for until a second interruption.
TEST_F(LoggerRuns, InterruptionsEndTheTransferThenTheWaitForSilenceThenAll) {
  const std::tuple<std::vector<double>, double, std::string> rows[] = {
      {{14}, 25, "d/c.txt: cancelled, 950 words."},
      {{14, 16}, 16, "d/c.txt: cancelled, 950 words."},
      {{1, 1.5, 2}, 9, "It was interrupted."}};
  for (const auto& [moments, end_s, ended] : rows) {
    restart();
    journey.meter.memory().select(2);
    for (const double moment : moments) interrupt_after(moment);
    run->download("d/c.txt", std::nullopt);
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_NEAR(journey.now_s() - began_s, end_s, 0.5) << moments.size();
    journey.world.run_for(60);
  }
}

// 101 bytes are the whole power file, and cut the two others short.
TEST_F(LoggerRuns, OfAllFilesOnlyTheMissingAreFetched) {
  const std::string harmonics = "d/20260305081501H.csv";
  journey.meter.faults().file.cut_after = 101;
  run->download_all("d");
  EXPECT_EQ(terminal.ended, "1 downloaded, 0 already there, 2 not whole: d.");
  EXPECT_EQ(terminal.printed.at(1),
            "file=" + harmonics + ".part\nkind=Harmonics\nstate=not whole\nrecords=0\nbytes=101\n\n");
  EXPECT_EQ(terminal.notes.at(0), "20260305081501H.csv: 0 records, bytes were lost: download again.");
  journey.meter.faults() = {};
  const auto kept = files();
  restart();
  files() = kept;
  LoggerProgress progress(journey.window("Logger"), journey.program().shared.notice, terminal);
  for (int tick = 1; tick < 220; ++tick) journey.world.user_does(tick * 0.5, [&] { progress.show(); });
  run->download_all("d");
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_EQ(std::ranges::count(received(), '\x04'), 2);
  EXPECT_EQ(terminal.printed.at(0), "file=d/20260305081500P.csv\nkind=Power\nstate=was there already\n\n");
  EXPECT_EQ(files().count(harmonics) + files().count(harmonics + ".part"), 1u);
  EXPECT_NE(terminal.steps.find("20260305081502C.txt, file 3 of 3: 7,680 bytes, "), std::string::npos);
}

TEST_F(LoggerRuns, TheTransientButtonIsToBePressedInTime) {
  run->download_transient("d/t.csv");
  EXPECT_EQ(terminal.notes.back(), "No transient data");
  EXPECT_EQ(terminal.ended, "d/t.csv: the meter sent nothing.");
  restart();
  journey.meter.memory().transient_report = simulator::example_memory().transient_report;
  journey.world.user_does(12, [this] { journey.port.press_transient(); });
  run->download_transient("d/t.csv");
  EXPECT_TRUE(terminal.printed.at(0).starts_with("file=d/t.csv\nkind=Transient\nrecords=5\nbytes="));
}

TEST_F(LoggerRuns, TheMemoryCountsAsClearedWhenTheMeterSaysSo) {
  run->clear();
  EXPECT_EQ(terminal.printed, Texts{"cleared_files=3\n"});
  EXPECT_EQ(received(), "?\x03\x03?");
  restart();
  journey.world.user_does(9.5, [this] { journey.meter.faults().silence = true; });
  run->clear();
  EXPECT_EQ(terminal.ended, status_failed);
}

TEST(LoggerCommand, ClearsOnlyWhenTheUserIsSure) {
  CLI::App app;
  ChosenCommand chosen;
  add_logger_command(app, chosen);
  EXPECT_THROW(app.parse("logger clear --port demo"), CLI::ValidationError);
  EXPECT_FALSE(chosen);
  app.parse("logger clear --port demo --yes");
  EXPECT_TRUE(chosen);
}

}  // namespace
}  // namespace halden
