#include "platform/virtual/virtual_world.h"

#include <gtest/gtest.h>

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
  const std::vector<double> expected = {0.25, 0.5, 1.1, 1.25, 1.5};
  ASSERT_EQ(ticks.size(), expected.size());
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
  for (VirtualTimer* timer : {&world.timer1, &world.timer2}) timer->set_enabled(true);
  world.run_for(0.7);
  EXPECT_EQ(order.substr(0, 4), "(11)");
}

TEST(VirtualWorldTest, TheCalendarGoesOverYearMonthAndLeapDay) {
  const std::tuple<Date, double, const char*> rows[] = {{{2026, 12, 31}, 10, "01/01/2027"},
                                                        {{2028, 2, 28}, 10, "02/29/2028"},
                                                        {{2026, 3, 1}, -86400, "02/28/2026"}};
  for (const auto& [date, forward_s, short_date] : rows) {
    VirtualWorld world(date, 86395);
    world.set_clock_forward(forward_s);
    EXPECT_EQ(world.clock.short_date(), short_date);
  }
}

TEST(VirtualFilesTest, AFullOrForbiddenDiskLeavesWhatWasThere) {
  VirtualFiles files;
  EXPECT_EQ(files.append("a", "one"), FileFailure::none);
  files.capacity = 5;
  EXPECT_EQ(files.append("a", "two"), FileFailure::disk_full);
  files.write_failure = FileFailure::forbidden;
  EXPECT_EQ(files.replace("a", "x"), FileFailure::forbidden);
  EXPECT_EQ(files.remove("a"), FileFailure::forbidden);
  EXPECT_EQ(files.read("a", 1, 10).bytes, "ne");
}

}  // namespace
}  // namespace halden
