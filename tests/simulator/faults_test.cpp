#include "simulator/faults.h"

#include <gtest/gtest.h>

#include "simulator/meter.h"

namespace halden::simulator {
namespace {

// A meter with that fault on, whose status reply is "ABCDEFGHIJ", asked for it at 0.
Meter asked(std::string_view fault) {
  Meter meter;
  EXPECT_TRUE(switch_on(fault, meter.faults())) << fault;
  meter.faults().status_reply = "ABCDEFGHIJ";
  meter.receive("?", 0.0);
  return meter;
}

TEST(Faults, SpoilTheReply) {
  const std::pair<std::string_view, std::string> cases[] = {
      {"silence", ""},          {"cut=4", "ABCD"},           {"cut=0", ""},
      {"cut=99", "ABCDEFGHIJ"}, {"drop=3", "ABDEGHJ"},       {"doubled", "ABCDEFGHIJABCDEFGHIJ"},
      {"late=5", "ABCDEFGHIJ"}, {"split=4:5", "ABCDEFGHIJ"}, {"unplugged", ""},
  };
  for (const auto& [fault, reply] : cases) EXPECT_EQ(asked(fault).take_output(60.0), reply) << fault;
  for (const char* fault :
       {"", "nonsense", "cut", "cut=", "cut=x", "cut=-1", "late=1s", "split=4", "silence=1"}) {
    Faults faults;
    EXPECT_FALSE(switch_on(fault, faults)) << fault;
    EXPECT_FALSE(faults.cut_after || faults.split_after) << fault;
  }
}

TEST(Faults, SplitAndLateRepliesComeInTheirTime) {
  const Meter split = asked("split=4:1");
  EXPECT_EQ(split.output_waiting(0.9), 4U);
  EXPECT_NEAR(split.next_output_s(0.9), 1.02 + 5.0 / 960, 1e-9);
  EXPECT_EQ(split.output_waiting(1.02 + 5.5 / 960), 5U);
  const Meter late = asked("late=0.5");
  EXPECT_EQ(late.output_waiting(0.52), 0U);
  EXPECT_EQ(late.output_waiting(0.54), 10U);
}

TEST(Faults, AnEndlessStreamNeedsNoRequestAndNoMemory) {
  Meter meter;
  meter.faults().endless_stream = true;
  EXPECT_EQ(meter.take_output(5.0), "");  // begins when it is first noticed
  meter.receive("? ", 5.5);
  EXPECT_EQ(meter.take_output(6.0).size(), 960U);
  EXPECT_EQ(meter.output_waiting(86400.0), 65536U);
  EXPECT_EQ(meter.take_output(86400.0).size(), 65536U);
}

}  // namespace
}  // namespace halden::simulator
