#include "link/waits.h"

#include <gtest/gtest.h>

#include "link/link_state.h"
#include "platform/program_end.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"

namespace halden {
namespace {

constexpr double turn_s = 0.006;  // a wait may end one turn late

struct WaitsTest : testing::Test {
  explicit WaitsTest(double time_of_day_s = 12 * 3600.0) : world({2026, 11, 22}, time_of_day_s) {
    port.open(1);
  }

  double seconds_for(const std::function<void()>& work) {
    const double start = world.clock.monotonic_s();
    work();
    return world.clock.monotonic_s() - start;
  }

  VirtualWorld world;
  ScriptedPort port{world};
  Waits waits{world.clock, port};
};

TEST_F(WaitsTest, ATimedWaitTakesItsTime) {
  for (const double seconds : {0.1, 0.2, 1.0, 5.0})
    EXPECT_NEAR(seconds_for([&] { waits.timed_wait(seconds, Yield::no); }), seconds, turn_s);
  EXPECT_EQ(seconds_for([&] { waits.timed_wait(0, Yield::yes); }), 0);
  EXPECT_NEAR(seconds_for([&] { waits.wait_seconds(3); }), 3, turn_s);
}

TEST_F(WaitsTest, OnlyAWaitThatYieldsTakesInput) {
  int clicks = 0;
  world.user_does(0.5, [&] { ++clicks; });
  waits.timed_wait(1, Yield::no);
  EXPECT_EQ(clicks, 0);
  waits.timed_wait(0.1, Yield::yes);
  EXPECT_EQ(clicks, 1) << "kept and delivered once input is taken again";
}

struct MidnightTest : WaitsTest {
  MidnightTest() : WaitsTest(86399.5) {}
};

TEST_F(MidnightTest, AWaitAcrossMidnightStartsAnewThere) {
  EXPECT_NEAR(seconds_for([&] { waits.timed_wait(1, Yield::no); }), 1.5, turn_s);
  EXPECT_NEAR(world.time_of_day_s(), 1.0, turn_s);
}

TEST_F(MidnightTest, CollectingAcrossMidnightKeepsEverythingAndEnds) {
  port.arrive(0.2, "before ");
  port.arrive(1.0, "after");
  std::string reply;
  EXPECT_NEAR(seconds_for([&] { waits.collect(5, reply); }), 5.5, turn_s);
  EXPECT_EQ(reply, "before after");
}

TEST_F(WaitsTest, AClockSetBackDoesNotPinAWait) {
  bool set_back = false;
  world.user_does(0.5, [&] {
    world.set_clock_forward(-3600);
    set_back = true;
  });
  EXPECT_NEAR(seconds_for([&] { waits.timed_wait(1, Yield::yes); }), 1.5, turn_s);
  EXPECT_TRUE(set_back);
}

TEST_F(WaitsTest, CollectAppendsAndNeverEndsEarly) {
  port.arrive(0.1, "one ");
  port.arrive(4.9, "two");
  std::string reply = "zero ";
  EXPECT_NEAR(seconds_for([&] { waits.collect(5, reply); }), 5, turn_s);
  EXPECT_EQ(reply, "zero one two");
}

TEST_F(WaitsTest, BuffersStayBoundedUnderAFlood) {
  port.arrive(0, std::string(1'000'000, 'x'));
  std::string live;
  waits.drain(live);
  EXPECT_EQ(live.size(), live_buffer_limit);
  port.arrive(0, "E" + std::string(1'000'000, 'x'));
  std::string reply;
  waits.collect(1, reply);
  EXPECT_EQ(reply.size(), reply_buffer_limit);
  EXPECT_EQ(reply.front(), 'E') << "a reply keeps its beginning";
}

TEST_F(WaitsTest, DrainingEndsWhenNothingMoreArrives) {
  std::string buffer;
  EXPECT_EQ(seconds_for([&] { waits.drain_while_arriving(0.2, buffer); }), 0) << "nothing is waiting";
  port.arrive(0, "a");
  port.arrive(0.15, "b");
  port.arrive(0.5, "too late");
  EXPECT_NEAR(seconds_for([&] { waits.drain_while_arriving(0.2, buffer); }), 0.2, turn_s);
  EXPECT_EQ(buffer, "ab");
}

// Something that sends so fast that more has always arrived by the time one looks again.
struct FloodingPort : ScriptedPort {
  using ScriptedPort::ScriptedPort;
  std::string receive() override { return "xxxx"; }
  std::size_t received_count() override { return 4; }
};

TEST_F(WaitsTest, DrainingEndsAfterSixSecondsOfAFlood) {
  FloodingPort flood(world);
  Waits flooded(world.clock, flood);
  std::string buffer;
  EXPECT_NEAR(seconds_for([&] { flooded.drain_while_arriving(0.2, buffer); }), 6, 0.2 + turn_s);
  EXPECT_FALSE(buffer.empty());
}

TEST_F(WaitsTest, DrainingUntilALengthEndsAsSoonAsItIsThere) {
  std::string buffer = "1234";
  port.arrive(0.03, "5");
  EXPECT_NEAR(seconds_for([&] { waits.drain_until_length(5, 0.1, buffer); }), 0.03, turn_s);
  EXPECT_NEAR(seconds_for([&] { waits.drain_until_length(6, 0.1, buffer); }), 0.1, turn_s);
  EXPECT_EQ(buffer, "12345");
}

struct QuietCase {
  const char* name;
  std::vector<double> arrivals_s;
  double expected_s;
};

TEST_F(WaitsTest, WaitingUntilQuietGoesInHalfSeconds) {
  // The first count always differs from the 1000 it starts from, so the shortest wait is one step.
  for (const QuietCase& row : {QuietCase{"silent line", {}, 0.5}, QuietCase{"one byte at once", {0.0}, 0.5},
                               QuietCase{"a byte in the first step", {0.3}, 0.5}}) {
    for (const double arrival_s : row.arrivals_s) port.arrive(arrival_s, "x");
    EXPECT_NEAR(seconds_for([&] { waits.wait_until_quiet(); }), row.expected_s, turn_s) << row.name;
    port.receive();
  }
}

TEST_F(WaitsTest, TheProgramEndsInTheMiddleOfAWait) {
  world.user_does(0.5, [&] { world.shell.end_program(); });
  bool went_on = false;
  EXPECT_FALSE(dispatch([&] {
    waits.timed_wait(3, Yield::yes);
    went_on = true;
  }));
  EXPECT_FALSE(went_on);
  EXPECT_NEAR(world.clock.monotonic_s(), 0.5, turn_s);
}

}  // namespace
}  // namespace halden
