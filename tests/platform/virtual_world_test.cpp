#include "platform/virtual/virtual_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/program_end.h"

namespace halden {
namespace {

TEST(VirtualWorldTest, TimersTickOnTheirGridAndKeepOneTickOver) {
  VirtualWorld world;
  std::vector<double> ticks;
  world.timer2.on_tick([&] {
    ticks.push_back(world.clock.monotonic_s());
    if (ticks.size() == 2) {  // busy for 0.6 s: the ticks at 0.75 and 1.0 become one
      for (int turn = 0; turn < 120; ++turn) world.clock.pause(Yield::no, 0.005);
    }
  });
  world.timer2.set_enabled(true);
  world.run_for(1.6);
  ASSERT_EQ(ticks.size(), 5u);
  const std::vector<double> expected = {0.25, 0.5, 1.1, 1.25, 1.5};
  for (std::size_t n = 0; n < expected.size(); ++n) EXPECT_NEAR(ticks[n], expected[n], 1e-9) << n;
}

TEST(VirtualWorldTest, ATimerDoesNotTickInsideItselfButTheOtherOneDoesWhileItYields) {
  VirtualWorld world;
  std::string order;
  world.timer1.set_period_ms(300);
  world.timer1.on_tick([&] { order += "1"; });
  world.timer2.on_tick([&] {
    order += "(";
    for (int turn = 0; turn < 100; ++turn) world.clock.pause(Yield::yes, 0.005);
    order += ")";
  });
  world.timer1.set_enabled(true);
  world.timer2.set_enabled(true);
  world.run_for(0.7);
  EXPECT_EQ(order.substr(0, 4), "(11)");
}

TEST(VirtualWorldTest, SwitchingOffDropsAHeldTickAndSettingThePeriodStartsAnew) {
  VirtualWorld world;
  int ticks = 0;
  world.timer1.set_period_ms(100);
  world.timer1.on_tick([&] { ++ticks; });
  world.timer1.set_enabled(true);
  for (int turn = 0; turn < 40; ++turn) world.clock.pause(Yield::no, 0.005);  // 0.2 s: one tick is held over
  world.timer1.set_enabled(false);
  world.timer1.set_enabled(true);
  world.run_for(0.09);
  EXPECT_EQ(ticks, 0);
  world.timer1.set_period_ms(500);
  world.run_for(0.45);
  EXPECT_EQ(ticks, 0);
  world.run_for(0.1);
  EXPECT_EQ(ticks, 1);
}

TEST(VirtualWorldTest, TheCalendarGoesOverMidnightMonthAndLeapDay) {
  struct Case {
    Date date;
    double forward_s;
    const char* short_date;
  };
  for (const Case& row : {Case{{2026, 12, 31}, 10, "01/01/2027"}, Case{{2028, 2, 28}, 10, "02/29/2028"},
                          Case{{2026, 3, 1}, -86400, "02/28/2026"}, Case{{2026, 3, 1}, 0, "03/01/2026"}}) {
    VirtualWorld world(row.date, 86395);
    world.set_clock_forward(row.forward_s);
    EXPECT_EQ(world.clock.short_date(), row.short_date);
  }
}

TEST(VirtualWorldTest, AfterTheEndNothingRunsAnyMore) {
  VirtualWorld world;
  int clicks = 0;
  world.user_does(1, [&] { world.shell.end_program(); });
  world.user_does(1, [&] { ++clicks; });
  world.run_for(5);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(world.clock.monotonic_s(), 1);
  EXPECT_THROW(world.clock.pause(Yield::no, 1), ProgramEnded);
}

TEST(VirtualFilesTest, AFullOrForbiddenDiskLeavesWhatWasThere) {
  VirtualFiles files;
  EXPECT_EQ(files.read("a", 0, 10).failure, FileFailure::not_found);
  EXPECT_EQ(files.append("a", "one"), FileFailure::none);
  files.capacity = 5;
  EXPECT_EQ(files.append("a", "two"), FileFailure::disk_full);
  files.capacity = 100;
  files.write_failure = FileFailure::forbidden;
  EXPECT_EQ(files.replace("a", "x"), FileFailure::forbidden);
  EXPECT_EQ(files.remove("a"), FileFailure::forbidden);
  EXPECT_EQ(files.read("a", 1, 10).bytes, "ne");
  EXPECT_EQ(files.length("a"), 3u);
  EXPECT_FALSE(files.length("b"));
}

}  // namespace
}  // namespace halden
