#include "link/waits.h"

#include <gtest/gtest.h>

#include "link/link_state.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"

namespace halden {
namespace {

constexpr double turn_s = 0.006;  // a wait may end one turn late

struct WaitsTest : testing::Test {
  WaitsTest() { port.open(1); }

  double seconds_for(const std::function<void()>& work) {
    const double start = world.clock.monotonic_s();
    work();
    return world.clock.monotonic_s() - start;
  }

  VirtualWorld world;
  ScriptedPort port{world};
  Waits waits{world.clock, port};
};

TEST_F(WaitsTest, CollectingAcrossMidnightBeginsAnewThereAndKeepsEverything) {
  world.set_clock_forward(86399.5 - world.time_of_day_s());
  port.arrive(0.2, "before ");
  port.arrive(5.4, "after");
  std::string reply = "old ";
  EXPECT_NEAR(seconds_for([&] { waits.collect(5, reply); }), 5.5, turn_s);
  EXPECT_EQ(reply, "old before after");
}

TEST_F(WaitsTest, AClockSetBackDoesNotPinAWait) {
  world.user_does(0.4, [&] { world.set_clock_forward(-3600); });
  EXPECT_NEAR(seconds_for([&] { waits.timed_wait(1, Yield::yes); }), 1.4, turn_s);
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
  std::string receive() override { return std::string(count += 4, 'x'); }
  std::size_t received_count() override { return count += 4; }
  std::size_t count = 0;
};

TEST_F(WaitsTest, AFloodIsWaitedForSixSecondsAndSilenceHalfASecond) {
  EXPECT_NEAR(seconds_for([&] { waits.wait_until_quiet(); }), 0.5, turn_s);
  FloodingPort flood(world);
  Waits flooded(world.clock, flood);
  std::string buffer;
  EXPECT_NEAR(seconds_for([&] { flooded.drain_while_arriving(0.2, buffer); }), 6, 0.2 + turn_s);
  EXPECT_NEAR(seconds_for([&] { flooded.wait_until_quiet(); }), 6, 0.5 + turn_s);
}

}  // namespace
}  // namespace halden
