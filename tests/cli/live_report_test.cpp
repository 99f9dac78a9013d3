#include <nlohmann/json.hpp>

#include "../scenario/companion_test_base.h"
#include "cli/live_command.h"
#include "noted_terminal.h"

namespace halden {
namespace {

struct LiveReports : testing::Test {
  void start(LiveOptions options, MeterSettings settings = {}) {
    journey.meter.settings() = settings;
    journey.start(1);
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

std::string names(const Record& record) {
  std::string result;
  for (const auto& item : record.items()) result += item.key() + " ";
  return result;
}

TEST_F(LiveReports, OneBlockPerFrameUntilTheCount) {
  start({3, Format::text});
  run_for(5);
  EXPECT_EQ(terminal.ended, "done");
  ASSERT_EQ(terminal.printed.size(), 3u);
  for (const std::string& block : terminal.printed) {
    EXPECT_EQ(block.substr(0, 23), "time=2026-11-22T12:00:1");
    EXPECT_EQ(block.substr(block.size() - 2), "\n\n");
  }
}

TEST_F(LiveReports, PhasorAnglesAreThoseOfThePhasesInUse) {
  PhasorAngles angles;
  angles.v_phasor_angle = {0, -1200, 1199};
  angles.i_phasor_angle = {-155, -1350, 1050};
  angles.v31_phasor_angle = 1501;
  Record one_phase, three_phases;
  add_phasor_angles(angles, 0, one_phase);
  add_phasor_angles(angles, 3, three_phases);
  EXPECT_EQ(names(one_phase), "v1_phasor_angle i1_phasor_angle ");
  EXPECT_EQ(one_phase["i1_phasor_angle"], "-15.5");
  EXPECT_EQ(three_phases.size(), 9u);
  EXPECT_EQ(three_phases["v3_phasor_angle"], "119.9");
  EXPECT_EQ(three_phases["v31_phasor_angle"], "150.1");
}

TEST_F(LiveReports, TheWiringDecidesWhichValuesThereAre) {
  const std::string system =
      "W_sys_value VA_sys_value VAR_sys_value PF_sys_value WH_sys_value VAH_sys_value VARH_sys_value "
      "PFH_sys_value W_AD_value VA_AD_value W_MD_value VA_MD_value ";
  const std::string unbalance = "VUR_value d0_v_value d2_v_value IUR_value d0_i_value d2_i_value ";
  const std::map<Wiring, std::string> expected = {
      {Wiring::w1p2w, "V1_value I1_value Phase1_value "},
      {Wiring::w1p3w,
       "V1_value I1_value W1_value VA1_value VAR1_value PF1_value Phase1_value "
       "V2_value I2_value W2_value VA2_value VAR2_value PF2_value Phase2_value "},
      {Wiring::w3p3w, "I1_value I2_value I3_value V12_value V23_value V31_value "},
      {Wiring::w3p4w,
       "V1_value I1_value W1_value VA1_value VAR1_value PF1_value Phase1_value "
       "V2_value I2_value W2_value VA2_value VAR2_value PF2_value Phase2_value "
       "V3_value I3_value W3_value VA3_value VAR3_value PF3_value Phase3_value "
       "V12_value V23_value V31_value "}};
  for (const auto& [wiring, phases_and_lines] : expected) {
    Journey fresh;
    fresh.meter.settings().wiring = wiring;
    fresh.start(1);
    const bool three_phase = wiring == Wiring::w3p3w || wiring == Wiring::w3p4w;
    EXPECT_EQ(names(live_record(fresh.window(), "")),
              "time " + phases_and_lines + system + (three_phase ? unbalance : ""));
  }
}

TEST_F(LiveReports, ValuesAreTheTextsOfThePanels) {
  journey.fix_phase(1, {2301, -1, -1, 0, 116});
  start({1, Format::json});
  run_for(2);
  ASSERT_EQ(terminal.printed.size(), 1u);
  const Record record = Record::parse(terminal.printed.front());
  EXPECT_EQ(record["V1_value"], "230.1V");
  EXPECT_EQ(record["I1_value"], "  OL ");
}

TEST_F(LiveReports, AMeterInHarmonicsModeIsToldAtOnce) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  start({std::nullopt, Format::text}, settings);
  EXPECT_EQ(terminal.ended, "The meter is in harmonics mode: press its POWER button and try again.");
  EXPECT_TRUE(terminal.printed.empty());
}

TEST_F(LiveReports, WithACountSilenceEndsIt) {
  start({1000, Format::json});
  run_for(2);
  const std::size_t before = terminal.printed.size();
  EXPECT_GT(before, 0u);
  journey.meter.faults().silence = true;
  run_for(29);
  EXPECT_EQ(terminal.ended, "");
  run_for(2);
  EXPECT_EQ(terminal.ended, "The meter has sent no readings for 30 seconds.");
  EXPECT_LE(terminal.printed.size(), before + 1);  // one frame may have been on its way
}

TEST_F(LiveReports, WithoutACountItWaitsForTheMeter) {
  start({std::nullopt, Format::json});
  journey.port.unplug();
  run_for(600);
  const std::size_t before = terminal.printed.size();
  journey.port.plug_in();
  run_for(10);
  EXPECT_EQ(terminal.ended, "");
  EXPECT_GT(terminal.printed.size(), before + 20);
}

// A clock whose midnight passes between two questions.
struct MidnightClock : Clock {
  double seconds_since_midnight() const override {
    midnight_passed = true;
    return 0.25;
  }
  double monotonic_s() const override { return 0; }
  Date today() const override { return midnight_passed ? Date{2027, 1, 1} : Date{2026, 12, 31}; }
  std::string short_date() const override { return {}; }
  void pause(Yield, double) override {}
  void run_later(std::function<void()>) override {}
  mutable bool midnight_passed = false;
};

TEST(LocalTime, DateTimeAndMilliseconds) {
  const VirtualWorld noon({2026, 11, 22}, 12 * 3600 + 30 * 60 + 44.25);
  EXPECT_EQ(local_time_text(noon.clock), "2026-11-22T12:30:44.250");
  const VirtualWorld morning({2027, 3, 4}, 5 * 3600 + 6 * 60 + 7.008);
  EXPECT_EQ(local_time_text(morning.clock), "2027-03-04T05:06:07.008");
  const VirtualWorld midnight({2026, 11, 22}, 86399.9999);
  EXPECT_EQ(local_time_text(midnight.clock), "2026-11-22T23:59:59.999");
  EXPECT_EQ(local_time_text(MidnightClock()), "2027-01-01T00:00:00.250");
}

}  // namespace
}  // namespace halden
