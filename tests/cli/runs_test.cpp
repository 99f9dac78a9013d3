// Commands that run beside the simulated meter.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "../scenario/program_test_base.h"
#include "cli/live_command.h"
#include "cli/record_command.h"
#include "cli/set_command.h"
#include "cli/view_choice.h"
#include "noted_terminal.h"

namespace halden {
namespace {

struct LiveReports : testing::Test {
  void start(LiveOptions options) {
    report.emplace(journey.program(), options, terminal);
    report->start();
  }

  // Half a second at a time, as the command looks at the silence.
  void run_for(double seconds) {
    for (double passed_s = 0; passed_s < seconds && terminal.ended.empty(); passed_s += 0.5) {
      journey.world.run_for(0.5);
      report->check_silence();
    }
  }

  Journey journey;
  NotedTerminal terminal;
  std::optional<LiveReport> report;
};

TEST_F(LiveReports, OneBlockPerFrameUntilTheCount) {
  journey.start(1);
  start({3, Format::text});
  run_for(5);
  EXPECT_EQ(terminal.ended, "done");
  ASSERT_EQ(terminal.printed.size(), 3u);
  for (const std::string& block : terminal.printed) {
    EXPECT_EQ(block.substr(0, 23), "time=2026-11-22T12:00:1");
    EXPECT_EQ(block.substr(block.size() - 2), "\n\n");
  }
}

TEST_F(LiveReports, TheWiringDecidesWhichValuesThereAre) {
  const std::string system =
      "W_sys_value VA_sys_value VAR_sys_value PF_sys_value WH_sys_value VAH_sys_value VARH_sys_value "
      "PFH_sys_value W_AD_value VA_AD_value W_MD_value VA_MD_value ";
  using simulator::Wiring;
  const std::pair<simulator::Wiring, std::string> rows[] = {
      {Wiring::w1p3w,
       "time V1_value I1_value W1_value VA1_value VAR1_value PF1_value Phase1_value "
       "V2_value I2_value W2_value VA2_value VAR2_value PF2_value Phase2_value " +
           system},
      {Wiring::w3p3w, "time I1_value I2_value I3_value V12_value V23_value V31_value " + system +
                          "VUR_value d0_v_value d2_v_value IUR_value d0_i_value d2_i_value "}};
  for (const auto& [wiring, expected] : rows) {
    journey.meter.settings().wiring = wiring;
    journey.start(1);
    std::string names;
    const Record record = live_record(journey.window(), "");
    for (const auto& item : record.items()) names += item.key() + " ";
    EXPECT_EQ(names, expected);
  }
}

TEST_F(LiveReports, SilenceEndsItOnlyWithACount) {
  journey.start(1);
  start({1000, Format::json});
  run_for(2);
  journey.meter.faults().silence = true;
  run_for(29);
  EXPECT_EQ(terminal.ended, "");
  run_for(2);
  EXPECT_EQ(terminal.ended, "The meter has sent no readings for 30 seconds.");
  terminal = {};
  start({std::nullopt, Format::json});
  run_for(600);
  journey.meter.faults().silence = false;
  run_for(10);
  EXPECT_EQ(terminal.ended, "");
  EXPECT_GT(terminal.printed.size(), 20u);
}

// 21 lines, and room for a remark and the cursor. Worked out for the load as in the tests of the live views.
TEST_F(LiveReports, OnATerminalEveryFrameReplacesOneTable) {
  journey.fix_worked_load();
  journey.start(1);
  terminal.size = ScreenSize{60, 23};
  start({std::nullopt, Format::text});
  run_for(1);
  const std::string first = terminal.printed.front(), second = terminal.printed.at(1);
  EXPECT_TRUE(first.starts_with("2026-11-22T12:00:1")) << first;
  EXPECT_TRUE(second.starts_with("\x1b[21A\r2026-11-22T12:00:1")) << second;
  EXPECT_TRUE(second.ends_with("%\x1b[K\n\x1b[J")) << second;
  EXPECT_EQ(std::ranges::count(second, '\n'), 21);
  for (const std::string line : {"  3P4W", "                 Phase 1     Phase 2     Phase 3      System",
                                 "V                 230.1V      229.8V      230.6V",
                                 "W                2.781KW     2.655KW     2.902KW     8.338KW",
                                 "V12 V23 V31       398.2V      398.7V      398.9V"})
    EXPECT_NE(second.find(line + "\x1b[K\n"), std::string::npos) << line;
  journey.meter.faults().silence = true;
  run_for(8);
  EXPECT_EQ(terminal.printed.back(), "The meter sends no readings.\n") << "below the table";
  const std::size_t silent = terminal.printed.size();
  journey.meter.faults().silence = false;
  run_for(3);
  EXPECT_TRUE(terminal.printed.at(silent).starts_with("\x1b[22A\r")) << "the remark is replaced as well";
  report->finish();
  EXPECT_EQ(terminal.printed.back(), "\r\x1b[J") << "the ^C of the terminal";
  EXPECT_EQ(terminal.ended, "done");
}

TEST_F(LiveReports, WithoutRoomForTheTableOrInJsonNothingIsReplaced) {
  journey.start(1);
  for (const auto& [size, format] : {std::pair(ScreenSize{80, 22}, Format::text),
                                     {ScreenSize{59, 50}, Format::text},
                                     {ScreenSize{0, 0}, Format::text},
                                     {ScreenSize{80, 50}, Format::json}}) {
    terminal = {};
    terminal.size = size;
    start({2, format});
    run_for(5);
    ASSERT_EQ(terminal.printed.size(), 2u);
    EXPECT_TRUE(terminal.printed[1].starts_with(format == Format::json ? "{\"time\"" : "time="));
    EXPECT_EQ(terminal.printed[1].find('\x1b'), std::string::npos);
  }
}

struct WaveReports : LiveReports {
  void meter_to(simulator::MeterMode mode) {
    journey.meter.settings().mode = mode;
    journey.start(1);
  }
  void receive(std::string LinkState::*buffer, const std::string& frame) {
    journey.program().link.state.*buffer = frame;
    journey.program().live.monitor.take_frame();
  }
  bool open_waveform() { return open_waveform_view(journey.program(), {}, terminal); }
};

// Order 1 is 1000 sqrt(2) long, at 45 - 1.1 degrees; order 2 is 7.07 % of it; order 3 is less than 1 %. The
// samples are 1000, -500 and 1, then none but 0; the peak of 12.70 A is 1000.
TEST_F(WaveReports, SpectrumAndWaveformArePrintedAsTheyAreShown) {
  std::string orders = " 00 0 0 01 1000 1000 02 0 100 03 -10 0";
  for (int k = 4; k < 100; ++k) orders += (k < 10 ? " 0" : " ") + std::to_string(k) + " 0 0";
  const std::string spectrum = "BO=    2R=  2301P=  3254N=  3253H=     2" + orders + "T=    32V=  2300E";
  const std::string wave = "B " + std::string("\x03\xE8\xFE\x0C\x00\x01", 6) + std::string(2042, 0) +
                           " O=    1 R= 9000 P=12700 N= 6350 H=    3 T=   32 V= 8990 E";
  meter_to(simulator::MeterMode::harmonics);
  for (const int rows : {24, 30}) {
    terminal.size = ScreenSize{80, rows};
    start({1, Format::text});
    receive(&LinkState::poll_buffer, spectrum);
  }
  start({2, Format::json});
  receive(&LinkState::poll_buffer, spectrum);
  ASSERT_TRUE(open_waveform());
  receive(&LinkState::wave_buffer, wave);
  const std::vector<std::string>& printed = terminal.printed;
  for (const auto& [index, part] :
       {std::pair(0u,
                  "C.F.                1.41   THD-F               3.2%   VI(1)             230.0V\x1b[K\n"),
        {0, " 0       0.0  100.0    7.1    0.7    0.0"},
        {1, " 0       0.0   43.9  180.0    0.0    0.0"},
        {2, R"("input":"V2","RMS_value":"230.1V","PEAK_P_value":"325.4V","PEAK_N_value":"-325.3V",)"},
        {2, R"("CF_value":"1.41","THD_F_value":"3.2%","VI_of_1_value":"230.0V","hz":"60Hz",)"},
        {2, R"("harmonic_percent":[0.0,100.0,7.1,0.7,0.0,)"},
        {2, R"("harmonic_angle":[0.0,43.9,180.0,0.0,0.0,)"},
        {3, R"("hz":"AUTO","unit":"A","samples":[12.7,-6.35,0.01,0.0,)"}})
    EXPECT_NE(printed.at(index).find(part), std::string::npos) << printed[index];
  EXPECT_EQ(std::ranges::count(printed[0], '\n'), 16) << "no room for the angles";
  EXPECT_EQ(std::ranges::count(printed[1], '\n'), 28);
  EXPECT_EQ(std::ranges::count(printed[2], ','), 10 + 2 * 99);
  EXPECT_EQ(std::ranges::count(printed[3], ','), 10 + 1023);
}

TEST_F(WaveReports, TheOtherModeIsToldOnceAndOneLostFrameIsNoSilence) {
  using enum simulator::MeterMode;
  for (const auto& [from, to, sentence] :
       {std::tuple(power, harmonics, "The meter is in harmonics mode: press its POWER button."),
        {harmonics, power, "The meter is in power mode: press its HARMO button."}}) {
    meter_to(from);
    terminal = {};
    start({std::nullopt, Format::json});
    journey.meter.faults().silence = true;
    run_for(from == power ? 4 : 8);
    journey.meter.faults().silence = false;
    run_for(10);
    EXPECT_EQ(terminal.notes, std::vector<std::string>());
    journey.meter.settings().mode = to;
    run_for(60);
    EXPECT_EQ(terminal.notes, std::vector<std::string>{sentence});
    report.reset();
  }
}

TEST_F(WaveReports, WhatOnlyHarmonicsModeHasIsRefusedInPowerMode) {
  meter_to(simulator::MeterMode::power);
  EXPECT_FALSE(open_waveform());
  EXPECT_EQ(std::exchange(terminal.ended, ""), needs_harmonics_mode);
  RecordOptions options;
  options.orders = OrderValues::angle;
  RecordRun(journey.program(), options, terminal).start();
  EXPECT_EQ(terminal.ended, needs_harmonics_mode);
  EXPECT_TRUE(journey.world.files.contents.empty());
}

struct RecordRuns : testing::Test {
  RecordRuns() { options.file = "d/a.csv"; }

  void start() {
    run.reset();
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

TEST_F(RecordRuns, EndAtTheTimeOrAtOnceWhereNothingCanBeRecorded) {
  options.duration_s = 10;
  start();
  run_for(60);
  EXPECT_EQ(terminal.ended, "done");
  EXPECT_EQ(lines(), 2 + 5) << "five instants in ten seconds";
  terminal = {};
  journey.world.files.folder_failures["d/"] = FileFailure::forbidden;
  start();
  EXPECT_EQ(terminal.ended, "d/a.csv: no permission.");
}

TEST_F(RecordRuns, AreSpectraInHarmonicsModeUntilTheInputChanges) {
  journey.meter.settings().mode = simulator::MeterMode::harmonics;
  options.orders = OrderValues::angle;
  start();
  run_for(30);
  EXPECT_NE(journey.world.files.contents["d/a.csv"].find(",INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=D\r\n"),
            std::string::npos);
  const std::ptrdiff_t before = lines();
  EXPECT_GE(before, 2 + 10);
  journey.meter.settings().channel = 3;
  run_for(30);
  EXPECT_LE(lines(), before + 2);
  EXPECT_TRUE(terminal.notes.at(0).ends_with("lines, readings of another kind or input are not recorded"));
}

TEST_F(RecordRuns, OfWaveformsAreFourSecondsApartAtLeast) {
  journey.meter.settings().mode = simulator::MeterMode::harmonics;
  journey.start(1);
  journey.click("open_waveform");
  options.duration_s = 20;
  run.emplace(journey.program(), options, terminal);
  run->start();
  run_for(60);
  EXPECT_EQ(terminal.notes.at(0), "The minimum sampling time for recording waveform is 4 seconds");
  EXPECT_EQ(lines(), 2 + 5);
}

TEST_F(RecordRuns, LinesThatWaitAreToldAndRescuedAtTheEnd) {
  start();
  run_for(3);
  journey.world.files.folder_failures["d/"] = FileFailure::disk_full;
  run_for(4);
  EXPECT_EQ(terminal.notes, std::vector<std::string>{
                                "recording a.csv: 2 lines, 1 waiting (disk full), a minus sign was cut off"});
  run->finish();
  const std::string where =
      "Recorded lines that could not be written are kept in work/halden-rescued-power.csv";
  EXPECT_EQ(terminal.ended, where);
  RecordRun(journey.program(), {}, terminal).start();
  EXPECT_EQ(terminal.notes.back(), where) << "as long as the file lies there";
}

TEST_F(RecordRuns, LinesThatCanBeKeptNowhereAreCalledLost) {
  start();
  run_for(3);
  journey.world.files.write_failure = FileFailure::disk_full;
  run_for(4);
  run->finish();
  EXPECT_EQ(terminal.ended, "2 recorded lines lost, because no file could be written (disk full).");
  EXPECT_TRUE(terminal.printed.empty()) << "no summary that counts them";
}

TEST(SetCommand, SendsInOrderAndTellsWhatTheMeterHolds) {
  const std::pair<std::vector<TypedSetting>, std::string> rows[] = {
      {{{"ct", "040"}, {"pt", "7"}, {"md", "30"}, {"sec", "4"}, {"hz", "auto"}}, "done"},
      {{{"sec", "3"}}, "Sampling time must be an even number (2, 4, 6, ...), please re-enter !"},
      {{{"ct", "0"}, {"pt", "9"}}, "The meter did not take ct=0; it holds 40."}};
  Journey journey;
  journey.start(1);
  const auto last_message = [&journey] {
    const auto texts = journey.world.dialogs.message_texts();
    return texts.empty() ? std::string() : texts.back();
  };
  std::vector<std::string> printed;
  for (const auto& [settings, ended] : rows) {
    NotedTerminal terminal;
    journey.world.dialogs.messages.clear();
    send_settings(journey.program(), settings, Format::text, last_message, terminal);
    EXPECT_EQ(terminal.ended, ended);
    EXPECT_TRUE(terminal.steps.starts_with("Sending " + std::string(settings[0].name == "ct" ? "CT" : "SEC") +
                                           " to the meter..."))
        << terminal.steps;
    printed.insert(printed.end(), terminal.printed.begin(), terminal.printed.end());
  }
  EXPECT_EQ(printed, std::vector<std::string>{"ct=40\npt=7\nmd=30\nsec=4\nhz=Auto\n"});
  EXPECT_EQ(journey.meter.settings().pt_ratio, 7) << "nothing is sent after a failure";
}

}  // namespace
}  // namespace halden
