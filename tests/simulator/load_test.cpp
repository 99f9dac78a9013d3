#include "simulator/load.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>

namespace halden {
namespace {

// 230.1 V x 8.123 A x cos 14.2 = 1812.0 W
TEST(RawUnits, FollowRangeAndLagConvention) {
  const struct {
    Reading reading;
    int range;
    RawPhase raw;
  } cases[] = {
      {{230.1, -120.0, 8.123, 14.2}, 1, {2301, 8123, 1812, 1200, 1342}},
      {{230.1, 120.0, 8.123, 14.2}, 1, {2301, 8123, 1812, -1200, -1058}},
      {{230.1, 0.0, 8.123, 14.2}, 2, {2301, 812, 181, 0, 142}},
      {{230.1, 0.0, 8.123, 14.2}, 3, {2301, 81, 18, 0, 142}},
      {{230.1, 0.0, 8.123, 14.2}, 0, {2301, -1, -1, 0, 142}},  // more than 3 A
      {{230.1, 0.0, 3.0, 0.0}, 0, {2301, 30000, 6903, 0, 0}},
      {{120.0, 180.0, 1.0, -10.0}, 1, {1200, 1000, 118, 1800, 1700}},
      {{100.0, -175.0, 1.0, 60.0}, 1, {1000, 1000, 50, 1750, -1250}},  // 2350 - 3600
      {{100.0, 0.0, 1.0, 120.0}, 1, {1000, 1000, -50, 0, 1200}},       // power flows back
  };
  for (const auto& row : cases) {
    const auto [v, i, w, p, q] = to_raw(row.reading, row.range);
    EXPECT_EQ((std::array{v, i, w, p, q}),
              (std::array{row.raw.v, row.raw.i, row.raw.w, row.raw.p, row.raw.q}))
        << "range " << row.range;
  }
}

// A day in steps of 7 seconds: the sizes an electrician expects, power that agrees with voltage, current and
// lag (rounded raw numbers: 0.05 V x 13 A, 0.1 degrees at 3 kW and 20 degrees, and 0.5 W make up to 3 W), no
// jumps.
TEST(Load, IsBelievableAllDay) {
  const Load load;
  const MeterSettings settings;
  for (int phase = 1; phase <= 3; ++phase) {
    Reading last = load.reading(phase, settings, 0.0);
    for (double t = 7.0; t < 86400.0; t += 7.0) {
      const Reading reading = load.reading(phase, settings, t);
      ASSERT_NEAR(reading.voltage_v, 230.0, 4.0);
      ASSERT_NEAR(reading.current_a, 9.0, 4.0);
      ASSERT_NEAR(reading.current_lag_deg, 15.0, 5.0);
      const RawPhase raw = load.raw(phase, settings, t);
      const double lag = (raw.q - raw.p) / 1800.0 * std::numbers::pi;
      ASSERT_NEAR(raw.w, raw.v * raw.i * std::cos(lag) / 10000.0, 3.0) << t;
      ASSERT_NEAR(reading.voltage_v, last.voltage_v, 0.6) << t;
      ASSERT_NEAR(reading.current_a, last.current_a, 0.9) << t;
      last = reading;
    }
  }
}

TEST(Load, DriftsTheSameInEveryRunWithAnglesThatFitTheWiring) {
  const Load load;
  MeterSettings settings;
  EXPECT_NE(load.raw(1, settings, 0.0), load.raw(1, settings, 60.0));
  EXPECT_NE(load.raw(1, settings, 0.0).v, load.raw(2, settings, 0.0).v);
  EXPECT_EQ(Load().raw(3, settings, 60.0), load.raw(3, settings, 60.0));
  EXPECT_EQ(load.raw(1, settings, 500.0).p, 0);
  EXPECT_NEAR(load.raw(2, settings, 500.0).p, 1200, 5);
  EXPECT_NEAR(load.raw(3, settings, 500.0).p, -1200, 5);
  settings.wiring = Wiring::w1p3w;
  EXPECT_NEAR(std::abs(load.raw(2, settings, 500.0).p), 1800, 5);
  EXPECT_EQ(load.raw(3, settings, 500.0), RawPhase());
}

TEST(Load, OverridesHoldUntilFreed) {
  Load load;
  const MeterSettings settings;
  const RawPhase drifting = load.raw(2, settings, 5.0);
  load.fix(2, {100.0, -120.0, 1.0, 60.0});
  EXPECT_EQ(load.raw(2, settings, 5.0), (RawPhase{1000, 1000, 50, 1200, -1800 + 3600}));
  load.fix_raw(2, {1, 2, 3, 4, 5});
  EXPECT_EQ(load.raw(2, settings, 99.0), (RawPhase{1, 2, 3, 4, 5}));
  EXPECT_NEAR(load.reading(2, settings, 99.0).current_a, 0.002, 1e-9);
  load.free();
  EXPECT_EQ(load.raw(2, settings, 5.0), drifting);
  EXPECT_THROW(load.fix(0, {}), std::out_of_range);
  EXPECT_THROW(load.fix_raw(4, {}), std::out_of_range);
}

}  // namespace
}  // namespace halden
