#include <nlohmann/json.hpp>

#include "../scenario/program_test_base.h"
#include "cli/live_command.h"
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

TEST(LivePhasors, AnglesAreThoseOfThePhasesInUse) {
  PhasorAngles angles;
  angles.v_phasor_angle = {0, -1200, 1199};
  angles.i_phasor_angle = {-155, -1350, 1050};
  angles.v12_phasor_angle = 300;
  angles.v23_phasor_angle = -900;
  angles.v31_phasor_angle = 1501;
  const auto shown = [&angles](Wiring wiring_system) {
    Record record;
    add_phasor_angles(angles, wiring_system, record);
    return record.dump();
  };
  EXPECT_EQ(shown(Wiring::w1p2w), R"({"v1_phasor_angle":"0.0","i1_phasor_angle":"-15.5"})");
  EXPECT_EQ(shown(Wiring::w3p4w),
            R"({"v1_phasor_angle":"0.0","i1_phasor_angle":"-15.5","v2_phasor_angle":"-120.0",)"
            R"("i2_phasor_angle":"-135.0","v3_phasor_angle":"119.9","i3_phasor_angle":"105.0",)"
            R"("v12_phasor_angle":"30.0","v23_phasor_angle":"-90.0","v31_phasor_angle":"150.1"})");
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

TEST_F(LiveReports, AMeterInHarmonicsModeIsToldAtOnce) {
  journey.meter.settings().mode = simulator::MeterMode::harmonics;
  journey.start(1);
  start({std::nullopt, Format::text});
  EXPECT_EQ(terminal.ended, "The meter is in harmonics mode: press its POWER button and try again.");
  EXPECT_TRUE(terminal.printed.empty());
}

TEST_F(LiveReports, SilenceEndsItOnlyWithACount) {
  journey.start(1);
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
  terminal = {};
  start({std::nullopt, Format::json});
  run_for(600);
  journey.meter.faults().silence = false;
  run_for(10);
  EXPECT_EQ(terminal.ended, "");
  EXPECT_GT(terminal.printed.size(), 20u);
}

// A clock whose midnight passes between two questions.
struct MidnightClock : VirtualClock {
  using VirtualClock::VirtualClock;
  double seconds_since_midnight() const override {
    midnight_passed = true;
    return 0.25;
  }
  Date today() const override { return midnight_passed ? Date{2027, 1, 1} : Date{2026, 12, 31}; }
  mutable bool midnight_passed = false;
};

TEST(LocalTime, DateTimeAndMilliseconds) {
  VirtualWorld noon({2026, 11, 22}, 12 * 3600 + 30 * 60 + 44.25);
  EXPECT_EQ(local_time_text(noon.clock), "2026-11-22T12:30:44.250");
  const VirtualWorld morning({2027, 3, 4}, 5 * 3600 + 6 * 60 + 7.008);
  EXPECT_EQ(local_time_text(morning.clock), "2027-03-04T05:06:07.008");
  const VirtualWorld midnight({2026, 11, 22}, 86399.9999);
  EXPECT_EQ(local_time_text(midnight.clock), "2026-11-22T23:59:59.999");
  EXPECT_EQ(local_time_text(MidnightClock(noon)), "2027-01-01T00:00:00.250");
}

}  // namespace
}  // namespace halden
