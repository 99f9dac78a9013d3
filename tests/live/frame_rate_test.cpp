#include "live/frame_rate.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(FrameRateTest, FollowsTheFramesAndFallsWhileTheMeterIsSilent) {
  FrameRate rate;
  EXPECT_EQ(rate.per_second(0), 0);
  rate.count(10);
  EXPECT_EQ(rate.per_second(10), 0) << "one frame has no rate";
  for (const double time_s : {10.25, 10.5, 10.75, 11.0}) rate.count(time_s);
  EXPECT_DOUBLE_EQ(rate.per_second(11.1), 4);
  EXPECT_DOUBLE_EQ(rate.per_second(12.5), 2) << "5 frames in 2.5 s";
  EXPECT_EQ(rate.per_second(16.1), 0);
}

}  // namespace
}  // namespace halden
