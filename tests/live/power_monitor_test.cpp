#include "live/power_monitor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/virtual/scripted_port.h"
#include "screen/main_window.h"

namespace halden {
namespace {

// Group of phase n with 220.n V, 1.000 A, 200 W: 49 characters and the gap before the next.
std::string group(char phase) {
  const std::string n(1, phase);
  return "V" + n + "=  220" + n + " I" + n + "=  1000 W" + n + "=   200 P" + n + "=     0 Q" + n + "=   100";
}

struct PowerMonitorTest : testing::Test {
  PowerMonitorTest() {
    port.open(1);
    state.port_ready = 1;
    status.ct_ratio = status.pt_ratio = 1;
    status.current_range = 1;
  }

  PowerFrame handle(std::string buffer, std::int16_t wiring_system) {
    state.poll_buffer = std::move(buffer);
    status.wiring_system = wiring_system;
    port.sent.clear();
    return monitor.handle_frame();
  }

  std::string text(const std::string& control) { return screen.meter_rec[control].text; }

  VirtualWorld world;
  ScriptedPort port{world};
  LinkState state;
  MeterStatus status;
  Readings readings{status};
  LiveReadings raw;
  Screen screen;
  PowerFrameSteps steps;
  Waits waits{world.clock, port};
  Polling polling{world.platform(port), waits, state};
  PowerMonitor monitor{waits, polling, state, status, readings, raw, screen.meter_rec, steps};
};

TEST_F(PowerMonitorTest, AGroupOf51CharactersIsNotParsedOneMoreIs) {
  EXPECT_EQ(handle(group('1') + "  ", 0), PowerFrame::without_group);
  EXPECT_EQ(text("V1_value"), "");
  EXPECT_TRUE(port.sent.empty());
  EXPECT_EQ(handle(group('1') + "   ", 0), PowerFrame::complete);
  EXPECT_EQ(text("V1_value"), "220.1V");
  EXPECT_EQ(state.poll_buffer, "");
}

TEST_F(PowerMonitorTest, TheNextFrameIsAskedForBeforeTheSystemValues) {
  std::string w_at_request = "not asked";
  steps.calculate_vi_angles = [&] { w_at_request = std::to_string(port.sent.size()); };
  handle(group('1') + "  " + group('2') + "  " + group('3') + "   ", 3);
  ASSERT_EQ(port.sent.size(), 1u);
  EXPECT_EQ(port.sent[0].bytes, " ");
  EXPECT_EQ(w_at_request, "1");
  EXPECT_EQ(text("W_sys_value"), "0.600KW");
}

TEST_F(PowerMonitorTest, StepsOfThreePhaseSystemsRunOnlyThere) {
  const std::string frame = group('1') + "  " + group('2') + "  " + group('3') + "   ";
  struct Case {
    std::int16_t wiring_system;
    std::string steps;
  };
  for (const Case& row :
       {Case{0, "angles phasors "}, Case{1, "angles phasors "}, Case{2, "angles unbalance phasors "},
        Case{3, "angles unbalance phasors "}, Case{9, "angles phasors "}}) {
    std::string ran;
    steps = {[&] { ran += "angles "; }, [&] { ran += "unbalance "; }, [&] { ran += "phasors "; }};
    EXPECT_EQ(handle(frame, row.wiring_system), PowerFrame::complete);
    EXPECT_EQ(ran, row.steps) << row.wiring_system;
  }
}

TEST_F(PowerMonitorTest, MissingFieldsLeaveTheirPanelsAlone) {
  handle(group('1') + "   ", 0);
  struct Case {
    const char* missing;
    std::vector<std::string> still_old;
  };
  for (const Case& row :
       {Case{"I1", {"I1_value", "VA1_value", "PF1_value"}},
        Case{"W1", {"W1_value", "VA1_value", "PF1_value"}}, Case{"P1", {"Phase1_value", "VAR1_value"}},
        Case{"Q1", {"Phase1_value", "VAR1_value"}}}) {
    for (const std::string& control : row.still_old) screen.meter_rec[control].text = "old";
    std::string frame = group('1') + "      ";
    frame.replace(frame.find(row.missing), 2, "xx");
    handle(frame, 0);
    for (const std::string& control : row.still_old)
      EXPECT_EQ(text(control), "old") << row.missing << control;
    EXPECT_EQ(text("V1_value"), "220.1V");
    handle(group('1') + "   ", 0);
    for (const std::string& control : row.still_old)
      EXPECT_NE(text(control), "old") << row.missing << control;
  }
}

// Bytes lost on the line: what is damaged keeps its last reading, and nothing is borrowed from a frame behind
// it.
TEST_F(PowerMonitorTest, ADamagedGroupBorrowsNothingFromItsNeighbours) {
  const std::string next = "V1=  5000 I1= 19999 W1=  9999 P1=     0 Q1=   500";
  struct Case {
    const char* name;
    std::string frame;
    std::string shown;  // V1 I1 W1 PF1
  };
  for (const Case& row :
       {Case{"I1 lost", "V1=  2301  W1=  2781  P1=     0  Q1=   116" + next, "230.1V 1.000A 2.781KW 0.90"},
        Case{"W1 lost", "V1=  2301  I1= 12340  P1=     0  Q1=   116" + next, "230.1V 12.34A 0.200KW 0.90"},
        Case{"V1 damaged behind a cut head",
             "V1=  1999 I1= 12V1=  23I1= 12340  W1=  2781  P1=     0  Q1=   116",
             "220.1V 1.000A 0.200KW 0.90"},
        Case{"the same with a frame behind it",
             "V1=  1999 I1= 12V1=  23I1= 12340  W1=  2781  P1=     0  Q1=   116" + next,
             "220.1V 1.000A 0.200KW 0.90"}}) {
    handle(group('1') + "   ", 0);
    handle(row.frame, 0);
    EXPECT_EQ(text("V1_value") + " " + text("I1_value") + " " + text("W1_value") + " " + text("PF1_value"),
              row.shown)
        << row.name;
  }
}

TEST_F(PowerMonitorTest, APhaseStillArrivingIsWaitedForATenthOfASecond) {
  port.arrive(0.05, group('2') + "  " + group('3') + "   ");
  EXPECT_EQ(handle(group('1') + "   ", 3), PowerFrame::complete);
  EXPECT_EQ(text("V3_value"), "220.3V");
  EXPECT_NEAR(world.clock.monotonic_s(), 0.05 + 0.2, 0.02)
      << "as soon as it is there, plus a gap before each group";

  port.arrive(0.15, group('2') + "  " + group('3') + "   ");
  EXPECT_EQ(handle(group('1') + "   ", 3), PowerFrame::partial);
}

TEST_F(PowerMonitorTest, AHarmonicsFrameIsDroppedAndNothingAskedFor) {
  EXPECT_EQ(handle("B O=    0 " + group('1') + std::string(1900, ' ') + "E", 3), PowerFrame::of_harmonics);
  EXPECT_EQ(state.poll_buffer, "");
  EXPECT_TRUE(port.sent.empty());
  EXPECT_EQ(text("V1_value"), "");
}

}  // namespace
}  // namespace halden
