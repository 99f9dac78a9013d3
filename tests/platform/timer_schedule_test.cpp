#include "platform/timer_schedule.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(TimerSchedule, TicksOnAGridWhateverTheDelayOfEachTick) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  schedule.set_enabled(true, 1000);
  EXPECT_FALSE(schedule.take_due(250999));
  EXPECT_TRUE(schedule.take_due(251000));
  EXPECT_FALSE(schedule.take_due(251000));
  EXPECT_TRUE(schedule.take_due(510000));  // due at 501000, delivered late
  EXPECT_EQ(schedule.due_us(), 751000);
}

TEST(TimerSchedule, ManyMissedPeriodsGiveOneTick) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  schedule.set_enabled(true, 0);
  EXPECT_TRUE(schedule.take_due(1000000));  // the fourth grid point itself counts as passed
  EXPECT_FALSE(schedule.take_due(1249999));
  EXPECT_TRUE(schedule.take_due(1250000));
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
}

TEST(TimerSchedule, APeriodIsAtLeastOneMillisecond) {
  TimerSchedule schedule;
  for (const int period_ms : {0, -5}) {
    schedule.set_period_ms(period_ms, 0);
    EXPECT_EQ(schedule.period_ms(), 1) << period_ms;
  }
}

}  // namespace
}  // namespace halden
