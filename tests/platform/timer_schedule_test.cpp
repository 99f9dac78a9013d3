#include "platform/timer_schedule.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(TimerSchedule, TicksOnAGridAndOnceForManyMissedPeriods) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  schedule.set_enabled(true, 1000);
  const std::pair<std::int64_t, bool> rows[] = {
      {250999, false},  {251000, true}, {251000, false}, {510000, true},  // due at 501000, delivered late
      {750999, false},  {751000, true}, {2001000, true},  // the fifth grid point itself counts as passed
      {2250999, false}, {2251000, true}};
  for (const auto& [now_us, due] : rows) EXPECT_EQ(schedule.take_due(now_us), due) << now_us;
}

TEST(TimerSchedule, SwitchingOnAndANewPeriodStartAFullPeriod) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  EXPECT_FALSE(schedule.take_due(10000000));
  schedule.set_enabled(true, 10000000);
  schedule.set_enabled(true, 10100000);  // is on already
  EXPECT_EQ(schedule.due_us(), 10250000);
  schedule.set_period_ms(1000, 10200000);
  EXPECT_EQ(schedule.due_us(), 11200000);
  schedule.set_enabled(false, 12000000);  // drops the tick that is due
  schedule.set_enabled(true, 12000000);
  EXPECT_FALSE(schedule.take_due(12999999));
  EXPECT_TRUE(schedule.take_due(13000000));
  schedule.set_period_ms(-5, 0);
  EXPECT_EQ(schedule.period_ms(), 1);
}

}  // namespace
}  // namespace halden
