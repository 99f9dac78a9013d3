// The commands of the meter's memory beside a simulated meter with three files: power, harmonics, hardcopy.
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
  LoggerRuns() {
    journey.meter.memory() = simulator::small_memory();
    restart();
  }

  void restart() {
    run.reset();
    terminal = {};
    journey.start(1);
    journey.world.dialogs.messages.clear();
    journey.world.run_for(0.1);  // the request of the live poll is sent
    began_s = journey.now_s();
    run.emplace(
        journey.program(),
        [this] {
          const Texts texts = journey.world.dialogs.message_texts();
          return texts.empty() ? std::string() : texts.back();
        },
        Format::text, terminal);
  }

  void interrupt_after(double seconds) {
    journey.world.user_does(seconds, [this] { run->interrupt(); });
  }
  std::string received() const { return journey.received(began_s); }
  std::ptrdiff_t transfers() const { return std::ranges::count(received(), '\x04'); }
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
  ASSERT_EQ(terminal.printed.size(), 3u);
  EXPECT_EQ(terminal.printed[0],
            "index=0\nkind=Power\nstart=2026-03-05T08:15:00\nsystem=1P2W\nhz=50\nct=1\npt=1\nsec=2\n\n");
  EXPECT_EQ(terminal.printed[1],
            "index=1\nkind=Harmonics\nstart=2026-03-05T08:15:00\nsystem=1P2W\nhz=50\nct=1\npt=1\nsec=2\n"
            "channel=V1\n\n");
  EXPECT_TRUE(terminal.printed[2].starts_with("index=2\nkind=Hardcopy\n"));
  EXPECT_EQ(received(), "?R00\r?R01\r?R02\r?R01\r?");
  restart();
  interrupt_after(12);
  run->list();
  EXPECT_EQ(terminal.ended, "It was interrupted.");
  EXPECT_EQ(received(), "?R00\r?R01\r?") << "the former one is selected also then";
}

TEST_F(LoggerRuns, WithoutFilesThereIsNothingToListFetchOrClear) {
  journey.meter.memory().erase();
  const std::pair<std::function<void()>, std::string> rows[] = {
      {[this] { run->list(); }, "done"},
      {[this] { run->download_all("d"); }, "done"},
      {[this] { run->clear(); }, "done"},
      {[this] { run->download("d/a.csv", std::nullopt); }, "No Data Recorded"}};
  for (const auto& [command, ended] : rows) {
    restart();
    command();
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_EQ(terminal.notes, ended == "done" ? Texts{"No Data Recorded"} : Texts());
    EXPECT_EQ(received(), "?");
    EXPECT_TRUE(files().empty() && terminal.printed.empty());
  }
}

TEST_F(LoggerRuns, ADownloadIsWholeOrSaysWhyNot) {
  const std::tuple<std::optional<std::size_t>, std::string, std::string> rows[] = {
      {std::nullopt, "file=d/a.csv\nkind=Power\nrecords=3\nbytes=30\n", "done"},
      {25, "file=d/a.csv\nkind=Power\nrecords=2\nbytes=25\n",
       "d/a.csv: 2 records, bytes were lost: download again."},
      {0, "", "d/a.csv: the meter sent nothing."}};
  for (const auto& [cut, printed, ended] : rows) {
    files().clear();
    restart();
    journey.meter.faults().file.cut_after = cut;
    run->download("d/a.csv", std::nullopt);
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_EQ(terminal.printed, printed.empty() ? Texts() : Texts{printed});
    EXPECT_EQ(files().count("d/a.csv"), 1u);
  }
  journey.meter.faults().silence = true;
  restart();
  run->download("d/a.csv", std::nullopt);
  EXPECT_EQ(terminal.ended, status_failed);
}

TEST_F(LoggerRuns, AnotherFileThanTheOneAskedForIsNotFetched) {
  run->download("d/a.csv", 3);
  EXPECT_EQ(terminal.ended, "The meter holds 3 files, numbered from 0: there is no file 3.");
  EXPECT_EQ(received(), "?");
  journey.meter.faults().file.wrong_index = 2;
  restart();
  run->download("d/a.csv", 1);
  EXPECT_EQ(terminal.ended, "The meter has selected file 2 instead of file 1.");
  EXPECT_TRUE(files().empty());
  journey.meter.faults() = {};
  restart();
  run->download("d/a.csv", 1);
  EXPECT_EQ(terminal.printed, Texts{"file=d/a.csv\nkind=Harmonics\nrecords=1\nbytes=128\n"});
}

// 7680 bytes take eight seconds, from the 12th on. The meter goes on sending, so that its silence is waited
// for until a second interruption.
TEST_F(LoggerRuns, InterruptionsEndTheTransferThenTheWaitForSilenceThenAll) {
  journey.meter.memory().select(2);
  const std::tuple<std::vector<double>, double, std::string> rows[] = {
      {{14}, 25, "d/c.txt: cancelled, 1 screen."},
      {{14, 16}, 16, "d/c.txt: cancelled, 1 screen."},
      {{1, 1.5, 2}, 9, "It was interrupted."}};
  for (const auto& [moments, end_s, ended] : rows) {
    files().clear();
    restart();
    for (const double moment : moments) interrupt_after(moment);
    run->download("d/c.txt", std::nullopt);
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_NEAR(journey.now_s() - began_s, end_s, 0.5) << moments.size();
    EXPECT_EQ(files()["d/c.txt"].empty(), moments.size() == 3);
    journey.world.run_for(60);
  }
}

// 101 bytes are the whole power file, and cut the two others short.
TEST_F(LoggerRuns, ASecondRunFetchesOnlyWhatIsMissing) {
  const std::string names[] = {"d/20260305081500P.csv", "d/20260305081501H.csv", "d/20260305081502C.txt"};
  journey.meter.faults().file.cut_after = 101;
  run->download_all("d");
  EXPECT_EQ(terminal.ended, "1 downloaded, 0 already there, 2 not whole: d.");
  ASSERT_EQ(terminal.printed.size(), 3u);
  EXPECT_EQ(terminal.printed[0],
            "file=" + names[0] + "\nkind=Power\nstate=downloaded\nrecords=3\nbytes=30\n\n");
  EXPECT_EQ(terminal.printed[1],
            "file=" + names[1] + ".part\nkind=Harmonics\nstate=not whole\nrecords=0\nbytes=101\n\n");
  EXPECT_EQ(terminal.notes.at(0), "20260305081501H.csv: 0 records, bytes were lost: download again.");
  journey.meter.faults() = {};
  for (const int missing : {2, 0}) {
    restart();
    LoggerProgress progress(journey.window("Logger"), journey.program().shared.notice, terminal);
    for (int tick = 1; tick < 200; ++tick) journey.world.user_does(tick * 0.5, [&] { progress.show(); });
    run->download_all("d");
    EXPECT_EQ(terminal.ended, "done");
    EXPECT_EQ(transfers(), missing);
    EXPECT_EQ(terminal.printed[0], "file=" + names[0] + "\nkind=Power\nstate=was there already\n\n");
    EXPECT_EQ(terminal.steps.find("20260305081502C.txt, file 3 of 3: 7,680 bytes, ") != std::string::npos,
              missing == 2)
        << terminal.steps;
    journey.world.run_for(100);
  }
  for (const std::string& name : names) {
    EXPECT_EQ(files().count(name), 1u);
    EXPECT_EQ(files().count(name + ".part"), 0u);
  }
  files().clear();
  restart();
  interrupt_after(14);
  run->download_all("d");
  EXPECT_TRUE(terminal.ended.starts_with("cancelled; ")) << terminal.ended;
}

TEST_F(LoggerRuns, TheTransientButtonIsToBePressedInTime) {
  journey.meter.memory().transient_report = simulator::example_memory().transient_report;
  run->download_transient("d/t.csv");
  EXPECT_EQ(terminal.notes,
            (Texts{"Press the TRANSIENT button of the meter within 12 seconds.", "No transient data"}));
  EXPECT_EQ(terminal.ended, "d/t.csv: the meter sent nothing.");
  EXPECT_EQ(files().count("d/t.csv"), 0u);
  restart();
  journey.world.user_does(12, [this] { journey.port.press_transient(); });
  run->download_transient("d/t.csv");
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_TRUE(terminal.printed.at(0).starts_with("file=d/t.csv\nkind=Transient\nrecords=5\nbytes="));
}

TEST_F(LoggerRuns, TheMemoryCountsAsClearedWhenTheMeterSaysSo) {
  run->clear();
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_EQ(terminal.printed, Texts{"cleared_files=3\n"});
  EXPECT_EQ(received(), "?\x03\x03?");
  journey.meter.memory() = simulator::small_memory();
  restart();
  journey.world.user_does(9.5, [this] { journey.meter.faults().silence = true; });
  run->clear();
  EXPECT_EQ(terminal.ended, status_failed);
}

}  // namespace
}  // namespace halden
