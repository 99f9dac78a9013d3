#include "live/sample_clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/virtual/virtual_world.h"
#include "screen/main_window.h"
#include "screen/panels.h"

namespace halden {
namespace {

struct SampleClockTest : testing::Test {
  void start_at(double time_of_day_s) {
    world = std::make_unique<VirtualWorld>(Date{2026, 12, 31}, time_of_day_s);
    clock = std::make_unique<SampleClock>(world->clock, world->timer1, screen.meter_rec);
    world->timer1.on_tick([this] {
      clock->tick();
      tick_times.push_back(world->time_of_day_s());
    });
    world->timer1.set_enabled(true);
  }

  const std::string& text(std::string_view control) { return screen.meter_rec[control].text; }

  Screen screen;
  std::unique_ptr<VirtualWorld> world;
  std::unique_ptr<SampleClock> clock;
  std::vector<double> tick_times;
};

TEST_F(SampleClockTest, TicksFallOnWholeSecondsWhateverTheStart) {
  start_at(1000.25);
  world->run_for(5);
  ASSERT_GE(tick_times.size(), 3u);
  EXPECT_NEAR(tick_times[0], 1002.25, 1e-3) << "the designer period";
  for (std::size_t n = 1; n < tick_times.size(); ++n)
    EXPECT_NEAR(tick_times[n], 1002.0 + static_cast<double>(n), 1e-3);
}

// A tick at .950 would leave 50 ms to the next whole second: that one is left out.
TEST_F(SampleClockTest, APeriodBelowATenthOfASecondIsLengthened) {
  start_at(500.95);
  clock->tick();
  EXPECT_EQ(world->timer1.period_ms(), 1050);
  start_at(500.9);
  clock->tick();
  EXPECT_EQ(world->timer1.period_ms(), 100);
  start_at(501.0);
  clock->tick();
  EXPECT_EQ(world->timer1.period_ms(), 1000);
}

struct SamplingCase {
  const char* label;
  std::vector<bool> instants;  // whether tick 1, 2, 3, ... marks a sampling instant
};

TEST_F(SampleClockTest, AnInstantIsMarkedWhenTheCountReachesTheSamplingTime) {
  for (const SamplingCase& row :
       {SamplingCase{"2.0 SEC", {false, true, false, true}},
        SamplingCase{"3 SEC", {false, false, true, false}},
        SamplingCase{"2.5 SEC", {false, false, true, false}}, SamplingCase{"0 SEC", {true, true, true, true}},
        SamplingCase{"nonsense", {true, true, true, true}}}) {
    start_at(3600);
    screen.meter_rec[sample_time_label].text = row.label;
    for (std::size_t tick = 0; tick < row.instants.size(); ++tick) {
      screen.meter_rec[sample_clock_label].text = "before";
      clock->tick();
      EXPECT_EQ(text(sample_clock_label) == "01:00:00", row.instants[tick])
          << row.label << " tick " << tick + 1;
    }
  }
}

TEST_F(SampleClockTest, AnInstantSetsIndexAndTimeAndHidesTheWarnings) {
  start_at(3 * 3600 + 7 * 60 + 9.4);
  clock->sample_counting = 0;  // every tick is an instant
  for (const char* label : {"hold", "Warning"}) screen.meter_rec[label].visible = true;
  clock->tick();
  EXPECT_EQ(text(sample_clock_label), "03:07:09");
  EXPECT_EQ(screen.meter_rec[sample_clock_label].tag, "5615") << "11229.4 / 2 + 0.5 = 5615.2";
  EXPECT_FALSE(screen.meter_rec["hold"].visible);
  EXPECT_FALSE(screen.meter_rec["Warning"].visible);
  screen.meter_rec[sample_time_label].text = "0 SEC";
  clock->tick();
  EXPECT_EQ(screen.meter_rec[sample_clock_label].tag, "5615") << "left alone without a sampling time";
}

TEST_F(SampleClockTest, TheDateFollowsMidnightAndTheYear) {
  start_at(86398.5);
  clock->show_date();
  EXPECT_EQ(text(date_label), "12/31/2026");
  world->run_for(5);
  EXPECT_EQ(text(date_label), "01/01/2027");
  EXPECT_EQ(text(sample_clock_label).substr(0, 7), "00:00:0");
}

}  // namespace
}  // namespace halden
