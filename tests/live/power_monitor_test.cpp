#include "live/power/power_monitor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/virtual/scripted_port.h"
#include "screen/meter_rec/main_window.h"

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

  PowerFrame handle(std::string buffer, int wiring_system) {
    state.poll_buffer = std::move(buffer);
    status.wiring_system = static_cast<Wiring>(wiring_system);
    port.sent.clear();
    return monitor.handle_frame();
  }

  std::string text(const std::string& control) { return meter_rec[control].text; }

  VirtualWorld world;
  ScriptedPort port{world};
  LinkState state;
  MeterStatus status;
  PowerChain chain{status};
  Window meter_rec = make_main_window();
  Waits waits{world.clock, port};
  Polling polling{world.platform(port), waits, state};
  PowerMonitor monitor{waits, polling, state, status, chain, meter_rec};
};

TEST_F(PowerMonitorTest, AGroupOf51CharactersIsNotParsedOneMoreIsAndAHarmonicsFrameIsDropped) {
  EXPECT_EQ(handle(group('1') + "  ", 0), PowerFrame::incomplete);
  EXPECT_EQ(text("V1_value"), "");
  EXPECT_TRUE(port.sent.empty());
  EXPECT_EQ(handle(group('1') + "   ", 0), PowerFrame::complete);
  EXPECT_EQ(text("V1_value"), "220.1V");
  EXPECT_EQ(state.poll_buffer, "");
  EXPECT_EQ(handle("B O=    0 " + group('2') + std::string(1900, ' ') + "E", 0), PowerFrame::of_harmonics);
  EXPECT_EQ(state.poll_buffer, "");
  EXPECT_TRUE(port.sent.empty());
}

// As many groups as the wiring system has phases make a frame; an unknown one has one.
TEST_F(PowerMonitorTest, TheNextFrameIsAskedForOnceTheLastPhaseOfTheWiringIsRead) {
  const std::string frame = group('1') + "  " + group('2') + "  " + group('3') + "   ";
  for (const auto& [wiring_system, w_sys] :
       {std::pair(0, "0.200KW"), {1, "0.400KW"}, {2, "0.600KW"}, {3, "0.600KW"}, {9, "0.200KW"}}) {
    EXPECT_EQ(handle(frame, wiring_system), PowerFrame::complete);
    EXPECT_EQ(text("W_sys_value"), w_sys) << wiring_system;
    EXPECT_EQ(port.sent.size(), 1u);
  }
}

// A value is a number or it is missing.
TEST(PowerField, HoldsDigitsWithOneSignAndBlanksAround) {
  const std::pair<const char*, std::optional<double>> rows[] = {
      {"=  2301", 2301}, {"=-04382", -4382}, {"= +12  ", 12}, {"=-   12", -12}, {" 000000", 0},
      {":   -05", -5},   {"=0031?2", {}},    {"=  12 3", {}}, {"=  --12", {}},  {"=  12-3", {}},
      {"=      ", {}},   {"=     -", {}},    {"=  12.3", {}}, {"=1e0004", {}},  {"=   0x1", {}},
      {"-04382 ", {}},   {"+  4382", {}},    {"1  4382", {}}, {"W  4382", {}},  {"= 12\t34", {}}};
  for (const auto& [field, value] : rows) EXPECT_EQ(power_field_value(field), value) << field;
}

// Bytes lost or changed on the line: what is damaged keeps its last reading, with everything that follows
// from it, and nothing is borrowed from a frame behind it.
TEST_F(PowerMonitorTest, ADamagedGroupBorrowsNothingFromItsNeighbours) {
  const std::string next = "V1=  5000 I1= 19999 W1=  9999 P1=     0 Q1=   50";
  const std::string cut_head = "V1=  1999 I1= 12V1=  2301 I1= 12340  W1=  2781  P1=     0  Q1=   116";
  const std::string old = "220.1V 1.000A 0.200KW 0.220KVA 0.90 -0.091KVAR -010.0";
  const std::tuple<const char*, std::string, std::string, PowerFrame> rows[] = {
      // V1 I1 W1 VA1 PF1 VAR1 Phase1
      {"I1 lost", "V1=  2301  W1=  2781  P1=     0  Q1=   116" + next,
       "230.1V 1.000A 2.781KW 0.220KVA 0.90 -0.091KVAR -011.6", PowerFrame::damaged},
      {"I1 no number", "V1=  2301  I1=0031?2  W1=  2781  P1=     0  Q1=   116" + next,
       "230.1V 1.000A 2.781KW 0.220KVA 0.90 -0.091KVAR -011.6", PowerFrame::damaged},
      {"W1 lost", "V1=  2301  I1= 12340  P1=     0  Q1=   116" + next,
       "230.1V 12.34A 0.200KW 0.220KVA 0.90 -0.091KVAR -011.6", PowerFrame::damaged},
      {"W1 turned into V1", "V1=  2301  I1= 12340  V1=  2781  P1=     0  Q1=   116" + next,
       "230.1V 12.34A 0.200KW 0.220KVA 0.90 -0.091KVAR -011.6", PowerFrame::damaged},
      {"W1 without its =", "V1=  2301  I1= 12340  W1-04382  P1=     0  Q1=   116 " + next,
       "230.1V 12.34A 0.200KW 0.220KVA 0.90 -0.091KVAR -011.6", PowerFrame::damaged},
      {"P1 lost", "V1=  2301  I1= 12340  W1=  2781  Q1=   116" + next,
       "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.091KVAR -010.0", PowerFrame::damaged},
      {"Q1 cut", "V1=  2301  I1= 12340  W1=  2781  P1=     0  Q1=   11", old, PowerFrame::incomplete},
      {"Q1 lost", "V1=  2301  I1= 12340  W1=  2781  P1=     0  x1=   116" + next, old,
       PowerFrame::incomplete},
      {"behind a cut head", cut_head, "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.570KVAR -011.6",
       PowerFrame::complete},
      {"the same with a frame behind it", cut_head + next,
       "230.1V 12.34A 2.781KW 2.839KVA 0.98 -0.570KVAR -011.6", PowerFrame::complete}};
  for (const auto& [name, frame, expected, outcome] : rows) {
    handle(group('1') + "   ", 0);
    EXPECT_EQ(handle(frame, 0), outcome) << name;
    EXPECT_EQ(port.sent.size(), outcome == PowerFrame::incomplete ? 0u : 1u) << name;
    std::string shown;
    for (const char* quantity : {"V1", "I1", "W1", "VA1", "PF1", "VAR1", "Phase1"})
      shown += (shown.empty() ? "" : " ") + text(std::string(quantity) + "_value");
    EXPECT_EQ(shown, expected) << name;
  }
}

// Without all groups of the wiring nothing of the system is worked out. That the meter sends another number
// of phases is said once it has done so twice.
TEST_F(PowerMonitorTest, AFrameIsCompleteWithAllGroupsOfTheWiring) {
  const std::string one = group('1') + "   ", two = one + group('2') + "   ",
                    three = two + group('3') + "   ";
  const std::tuple<const char*, std::string, int, PowerFrame, std::size_t> rows[] = {
      {"phases in another order", group('2') + "  " + one, 1, PowerFrame::incomplete, 0},
      {"one of three", one, 3, PowerFrame::incomplete, 0},
      {"one of three again", one + one, 3, PowerFrame::incomplete, 0},
      {"a gap where more was lost", two + two + group('1') + std::string(40, 'x') + group('2'), 3,
       PowerFrame::incomplete, 0},
      {"one of three again and again", one + one + one, 3, PowerFrame::incomplete, 1},
      {"two of three again and again", two + two + two, 3, PowerFrame::incomplete, 2},
      {"three of three", three, 3, PowerFrame::complete, 0},
      {"three where one is used", three, 0, PowerFrame::complete, 3},
      {"an old one and the head of the next", three + two, 3, PowerFrame::complete, 0}};
  for (const auto& [name, frame, wiring, outcome, phases] : rows) {
    meter_rec.set_text("W_sys_value", "old");
    EXPECT_EQ(handle(frame, wiring), outcome) << name;
    EXPECT_EQ(text("W_sys_value") == "old", outcome != PowerFrame::complete) << name;
    EXPECT_EQ(monitor.other_phase_count(), phases) << name;
  }
}

TEST_F(PowerMonitorTest, APhaseStillArrivingIsWaitedForATenthOfASecond) {
  port.arrive(0.05, group('2') + "  " + group('3') + "   ");
  EXPECT_EQ(handle(group('1') + "   ", 3), PowerFrame::complete);
  EXPECT_EQ(text("V3_value"), "220.3V");
  EXPECT_NEAR(world.clock.monotonic_s(), 0.05, 0.01) << "as soon as it is there";

  port.arrive(0.15, group('2') + "  " + group('3') + "   ");
  EXPECT_EQ(handle(group('1') + "   ", 3), PowerFrame::incomplete);
  EXPECT_NE(state.poll_buffer, "") << "the rest may come with the next tick";
}

}  // namespace
}  // namespace halden
