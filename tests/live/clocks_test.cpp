#include "live/sample_clock.h"

#include <gtest/gtest.h>

#include <string>

#include "live/frame_rate.h"
#include "platform/virtual/scripted_port.h"
#include "screen/meter_rec/main_window.h"
#include "screen/meter_rec/panels.h"

namespace halden {
namespace {

struct ClockAt {
  explicit ClockAt(double time_of_day_s) : world({2026, 12, 31}, time_of_day_s) {}

  VirtualWorld world;
  LinkState link;
  Window window = make_main_window();
  ScriptedPort port{world};
  SampleClock clock{world.platform(port), link, window};
};

// A tick at .950 would leave 50 ms to the next whole second: that one is left out.
TEST(SampleClockTest, TheNextTickFallsOnAWholeSecondATenthOrMoreAway) {
  for (const auto& [time_of_day_s, period_ms] :
       {std::pair(501.0, 1000), {500.25, 750}, {500.9, 100}, {500.95, 1050}}) {
    ClockAt at(time_of_day_s);
    at.clock.tick();
    EXPECT_EQ(at.world.timer1.period_ms(), period_ms) << time_of_day_s;
  }
}

TEST(SampleClockTest, AnInstantIsMarkedWhenTheCountReachesTheSamplingTime) {
  for (const auto& [label, expected] :
       {std::pair("2.0 SEC", "-x-x"), {"2.5 SEC", "--x-"}, {"0 SEC", "xxxx"}, {"nonsense", "xxxx"}}) {
    ClockAt at(3600);
    at.window.set_text(sample_time_label, label);
    std::string instants;
    for (int tick = 0; tick < 4; ++tick) {
      at.window.set_text(sample_clock_label, "before");
      at.clock.tick();
      instants += at.window[sample_clock_label].text == "01:00:00" ? 'x' : '-';
    }
    EXPECT_EQ(instants, expected) << label;
  }
}

TEST(SampleClockTest, AnInstantSetsIndexTimeAndDateAndAnyTickHidesTheWarningOfALinkThatIsBack) {
  ClockAt at(3 * 3600 + 7 * 60 + 9.4);
  at.clock.restart_counting();
  for (const char* label : {"hold", "Warning"}) at.window.set_visible(label, true);
  at.link.link_lost = 1;
  at.clock.tick();
  EXPECT_TRUE(at.window["Warning"].visible) << "as long as the link is lost";
  at.link.link_lost = 0;
  EXPECT_EQ(at.window[sample_clock_label].text, "03:07:09");
  EXPECT_EQ(at.window[sample_clock_label].tag, "5615") << "11229.4 / 2 + 0.5 = 5615.2";
  EXPECT_FALSE(at.window["hold"].visible);
  EXPECT_EQ(at.clock.instant_date(), (Date{2026, 12, 31}));
  at.world.set_clock_forward(21 * 3600);
  at.clock.tick();
  EXPECT_FALSE(at.window["Warning"].visible) << "also between two instants";
  EXPECT_EQ(at.clock.instant_date(), (Date{2026, 12, 31})) << "the date of the instant, not of today";
  at.window.set_text(sample_time_label, "0 SEC");
  at.clock.tick();
  EXPECT_EQ(at.clock.instant_date(), (Date{2027, 1, 1}));
  EXPECT_EQ(at.window[sample_clock_label].tag, "5615") << "left alone without a sampling time";
}

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
