#include "simulator/load.h"

#include <gtest/gtest.h>

#include <cmath>

namespace halden::simulator {
namespace {

// 230.1 V x 8.123 A x cos 14.2 = 1812.0 W
TEST(RawUnits, FollowRangeAndLagConvention) {
  const struct {
    Reading reading;
    int range;
    std::array<int, 5> raw;
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
    EXPECT_EQ((std::array{v, i, w, p, q}), row.raw) << "range " << row.range;
  }
}

TEST(Load, IsBelievableAllDayAndFitsTheWiring) {
  const Load load;
  MeterSettings settings;
  const int angles[] = {0, 1200, -1200};
  for (int phase = 1; phase <= 3; ++phase)
    for (double t = 0.0; t < 86400.0; t += 97.0) {
      const RawPhase raw = load.raw(phase, settings, t);
      ASSERT_NEAR(raw.v, 2300, 40);
      ASSERT_NEAR(raw.i, 9000, 4000);
      ASSERT_NEAR(raw.p, angles[phase - 1], 5);
      ASSERT_NEAR(std::remainder(raw.q - raw.p, 3600), 150, 50);
    }
  EXPECT_NE(load.raw(1, settings, 0.0), load.raw(1, settings, 60.0));
  settings.wiring = Wiring::w1p3w;
  EXPECT_NEAR(std::abs(load.raw(2, settings, 500.0).p), 1800, 5);
  EXPECT_EQ(load.raw(3, settings, 500.0), RawPhase());
}

}  // namespace
}  // namespace halden::simulator
