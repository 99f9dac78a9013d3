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

TEST_F(PowerMonitorTest, TheNextFrameIsAskedForBeforeTheSystemStepsOfItsWiringRun) {
  const std::string frame = group('1') + "  " + group('2') + "  " + group('3') + "   ";
  std::string ran;
  steps = {[&] { ran += "[" + port.sent.at(0).bytes + "] angles "; }, [&] { ran += "unbalance "; },
           [&] { ran += "phasors"; }};
  struct Case {
    std::int16_t wiring_system;
    const char* steps;
  };
  for (const Case& row :
       {Case{0, "[ ] angles phasors"}, Case{1, "[ ] angles phasors"}, Case{2, "[ ] angles unbalance phasors"},
        Case{3, "[ ] angles unbalance phasors"}, Case{9, "[ ] angles phasors"}}) {
    ran.clear();
    EXPECT_EQ(handle(frame, row.wiring_system), PowerFrame::complete);
    EXPECT_EQ(ran, row.steps) << row.wiring_system;
    EXPECT_EQ(port.sent.size(), 1u);
  }
}

// Bytes lost on the line: what is damaged keeps its last reading, and nothing is borrowed from a frame behind
// it.
TEST_F(PowerMonitorTest, ADamagedGroupBorrowsNothingFromItsNeighbours) {
  // The old VAR1 is sqrt(220^2 - 200^2) - 0.5 = 91.2; 2781 W above 220 VA give none.
  const std::string next = "V1=  5000 I1= 19999 W1=  9999 P1=     0 Q1=   500";
  const std::string cut_head = "V1=  1999 I1= 12V1=  23I1= 12340  W1=  2781  P1=     0  Q1=   116";
  struct Case {
    const char* name;
    std::string frame;
    std::string shown;  // V1 I1 W1 VA1 PF1 VAR1 Phase1
  };
  const std::string old = "220.1V 1.000A 0.200KW 0.220KVA 0.90 -0.091KVAR -010.0";
  for (const Case& row : {Case{"I1 lost", "V1=  2301  W1=  2781  P1=     0  Q1=   116" + next,
                               "230.1V 1.000A 2.781KW 0.220KVA 0.90 0.000KVAR -011.6"},
                          Case{"W1 lost", "V1=  2301  I1= 12340  P1=     0  Q1=   116" + next,
                               "230.1V 12.34A 0.200KW 0.220KVA 0.90 -0.091KVAR -011.6"},
                          Case{"P1 lost", "V1=  2301  I1= 12340  W1=  2781  Q1=   116" + next,
                               "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.091KVAR -010.0"},
                          Case{"Q1 cut", "V1=  2301  I1= 12340  W1=  2781  P1=     0  Q1=   11",
                               "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.091KVAR -010.0"},
                          Case{"Q1 damaged", "V1=  2301  I1= 12340  W1=  2781  P1=     0  x1=   116",
                               "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.091KVAR -010.0"},
                          Case{"V1 damaged behind a cut head", cut_head, old},
                          Case{"the same with a frame behind it", cut_head + next, old}}) {
    handle(group('1') + "   ", 0);
    handle(row.frame, 0);
    std::string shown;
    for (const char* quantity : {"V1", "I1", "W1", "VA1", "PF1", "VAR1", "Phase1"})
      shown += (shown.empty() ? "" : " ") + text(std::string(quantity) + "_value");
    EXPECT_EQ(shown, row.shown) << row.name;
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
