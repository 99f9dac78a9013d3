// Energy and demand over many sampling instants. All expected texts are worked out on paper.
#include <gtest/gtest.h>

#include "readings/readings.h"

namespace halden {
namespace {

class Accumulators : public testing::Test {
 protected:
  Accumulators() {
    scaling.ct_ratio = scaling.pt_ratio = 1;
    scaling.md_period = 1;
  }

  void advance_energy(double w, double var, double va) {
    readings.system_w_raw = w;
    readings.system_var_raw = var;
    readings.system_va_raw = va;
    readings.advance_energy_wh(2);
    readings.advance_energy_varh(2);
    readings.advance_energy_vah(2);
    readings.energy_power_factor();
  }

  void expect_energy(const char* texts, double wh, double varh, double vah, int pf) {
    EXPECT_EQ(readings.energy_wh_text + ' ' + readings.energy_varh_text + ' ' + readings.energy_vah_text +
                  ' ' + readings.energy_pf_text,
              texts);
    EXPECT_EQ(readings.energy_wh, wh) << texts;
    EXPECT_EQ(readings.energy_varh, varh) << texts;
    EXPECT_EQ(readings.energy_vah, vah) << texts;
    EXPECT_EQ(readings.energy_pf_raw, pf) << texts;
  }

  // The once-per-sample work with the given system values.
  void samples(int count, double w, double va, double t = 2) {
    readings.system_w_raw = w;
    readings.system_va_raw = va;
    for (int i = 0; i < count; ++i) {
      readings.count_demand_sample();
      readings.advance_maximum_demand_w(t);
      readings.advance_maximum_demand_va(t);
      readings.advance_average_demand_w(t);
      readings.advance_average_demand_va(t);
      readings.reset_demand_period(t);
    }
  }

  void expect_demand(const char* maximum_w, const char* average_w, const char* maximum_va,
                     const char* average_va) {
    EXPECT_EQ(readings.demand_w_text, maximum_w);
    EXPECT_EQ(readings.average_w_text, average_w);
    EXPECT_EQ(readings.demand_va_text, maximum_va);
    EXPECT_EQ(readings.average_va_text, average_va);
  }

  void expect_kept(double maximum_w, double average_w, double maximum_va, double average_va) {
    EXPECT_EQ(readings.max_demand_w, maximum_w);
    EXPECT_EQ(readings.average_demand_w, average_w);
    EXPECT_EQ(readings.max_demand_va, maximum_va);
    EXPECT_EQ(readings.average_demand_va, average_va);
  }

  void expect_sums(int count, double w, std::int32_t va) {
    EXPECT_EQ(readings.demand_samples, count);
    EXPECT_EQ(readings.demand_w_sum, w);
    EXPECT_EQ(readings.average_w_sum, w);
    EXPECT_EQ(readings.demand_va_sum, va);
    EXPECT_EQ(readings.average_va_sum, va);
  }

  Scaling scaling;
  Readings readings{scaling};
};

TEST_F(Accumulators, EnergyGrowsWithEveryCallExceptOverRange) {
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "0.00H");
  advance_energy(36000, -36000, 72000);  // 3600 W: 2 s are 2 Wh
  expect_energy("002.0WH -002.0VARH 004.0VAH 0.50H", 36000, -36000, 72000, 500);
  advance_energy(36000, -36000, 72000);
  expect_energy("004.0WH -004.0VARH 008.0VAH 0.50H", 72000, -72000, 144000, 500);
  advance_energy(-1, -1, -1);
  expect_energy("  OL    OL    OL  0.50H", 72000, -72000, 144000, 500);

  readings.energy_wh = -86400;
  for (const auto& [w, va] : {std::pair(-1, 1000), {1000, -1}}) {
    readings.system_w_raw = w;
    readings.system_va_raw = va;
    readings.energy_power_factor();
    EXPECT_EQ(readings.energy_pf_text, "0.50H") << w << ' ' << va;
  }
  readings.system_va_raw = 1000;
  readings.energy_power_factor();
  expect_energy("  OL    OL    OL  -0.60H", -86400, -72000, 144000, -600);
}

// 360000 x 2 / 3600 = 200 counts before the ratios. Energies have no 32-bit limit.
TEST_F(Accumulators, EnergyUnits) {
  const struct {
    double raw;
    int ct, pt;
    float clamp;
    int range;
    const char* text;
  } cases[] = {
      {360000, 1, 1, 1.2f, 0, "024.0WH"},          {360000, 1, 1, 1.0f, 1, "0.200KWH"},
      {360000, 1000, 1, 1.0f, 0, "20.00KWH"},       // 2e5 -> 2000 at exponent 2
      {360000, 1000, 100, 1.0f, 0, "2.000MWH"},     // 2e7 -> exponent 4
      {360000, 10000, 10000, 1.0f, 0, "2.000GWH"},  // 2e10 -> exponent 7
      {360000, 10000, 10000, 1.0f, 3, "2.000TWH"},  // exponent 10
      {22222800, 1, 1, 1.0f, 0, "1.235KWH"},        // x 2 / 3600 = 12346, rounded
  };
  for (const auto& c : cases) {
    Scaling own;
    own.ct_ratio = static_cast<std::int16_t>(c.ct);
    own.pt_ratio = static_cast<std::int16_t>(c.pt);
    own.current_scale = c.clamp;
    own.current_range = static_cast<std::int16_t>(c.range);
    Readings own_readings(own);
    own_readings.system_w_raw = c.raw;
    own_readings.advance_energy_wh(2);
    EXPECT_EQ(own_readings.energy_wh_text, c.text);
  }
}

TEST_F(Accumulators, ADemandPeriodCompletesShowsAndStartsAnew) {
  samples(29, 1000, 2000);
  expect_demand("------", "", "------", "");
  expect_sums(29, 29000, 58000);
  samples(1, 1000, 2000);  // the 30th: 60 s
  expect_demand("100.0W", "100.0W", "200.0VA", "200.0VA");
  expect_sums(0, 0, 0);

  samples(30, 500, 500);
  expect_demand("100.0W", "050.0W", "200.0VA", "050.0VA");
  expect_kept(1000, 500, 2000, 500);
  samples(15, 1000, 3000);  // half the time each: 2000 and 4000 on average
  samples(15, 3000, 5000);
  expect_demand("200.0W", "200.0W", "400.0VA", "400.0VA");
  expect_kept(2000, 2000, 4000, 4000);

  samples(30, -1000, 1000);  // an average, but no maximum
  expect_demand("200.0W", "-100.0W", "400.0VA", "100.0VA");
  expect_kept(2000, -1000, 4000, 1000);
}

TEST_F(Accumulators, AnEqualDemandIsShownAnewAnOverflowingOneIsNot) {
  samples(30, 1000, 1000);
  scaling.ct_ratio = 2;
  samples(30, 1000, 1000);
  expect_demand("200.0W", "200.0W", "200.0VA", "200.0VA");
  scaling.ct_ratio = 10000;
  scaling.pt_ratio = 1000;  // 2000 x 1e7 = 2e10
  samples(30, 2000, 2000);
  expect_demand("200.0W", "200.0W", "200.0VA", "200.0VA");
  expect_kept(1000, 1000, 1000, 1000);
}

TEST_F(Accumulators, DemandPeriodsFollowTheSamplingTime) {
  samples(40, 1000, 1000, 0);  // without one none completes
  expect_demand("------", "", "------", "");
  expect_sums(40, 40000, 40000);
  readings.reset_energy_and_demand();
  samples(8, 1000, 1000, 7);  // 60 / 7 = 8.57: the period ends with the sample after it
  EXPECT_EQ(readings.average_w_text, "");
  samples(1, 1000, 1000, 7);
  EXPECT_EQ(readings.average_w_text, "100.0W");
  EXPECT_EQ(readings.demand_samples, 0);
}

TEST_F(Accumulators, WithoutADemandPeriodEverySampleIsOne) {
  scaling.md_period = 0;
  readings.advance_average_demand_w(2);  // before any sample was counted: nothing to divide by
  EXPECT_EQ(readings.average_w_text, "");
  samples(1, 1000, 1000);
  expect_demand("100.0W", "100.0W", "100.0VA", "100.0VA");
}

TEST_F(Accumulators, OverRangeCountsTheSampleButAddsNothing) {
  samples(14, 1000, 1000);
  samples(1, -1, -1);
  expect_demand("  OL ", "  OL ", "  OL ", "  OL ");
  expect_sums(15, 14000, 14000);
  samples(15, 1000, 1000);
  expect_demand("096.7W", "096.7W", "096.7VA", "096.7VA");  // 29000 / 30 = 966.67
}

TEST_F(Accumulators, TheAverageVaSumIsA32BitNumber) {
  const struct {
    std::int32_t before;
    double va;
    std::int32_t after;
  } cases[] = {{0, 2.5, 2},  // half to even
               {2147483000, 1000, 2147483000},
               {2147483000, 647, 2147483647}};
  for (const auto& c : cases) {
    readings.average_va_sum = c.before;
    readings.system_va_raw = c.va;
    readings.advance_average_demand_va(2);
    EXPECT_EQ(readings.average_va_sum, c.after);
  }
}

TEST_F(Accumulators, TheEnergyResetStartsEverythingFromZero) {
  samples(45, 1000, 2000);
  advance_energy(1000, 1000, 2000);
  readings.reset_energy_and_demand();
  EXPECT_EQ(readings.energy_wh, 0);
  EXPECT_EQ(readings.energy_varh, 0);
  EXPECT_EQ(readings.energy_vah, 0);
  EXPECT_EQ(readings.energy_pf_raw, 0);
  expect_sums(0, 0, 0);
  expect_kept(0, 0, 0, 0);
  expect_demand("------", "", "------", "");
  samples(30, 10, 20);  // lower than the old maxima
  expect_demand("001.0W", "001.0W", "002.0VA", "002.0VA");
}

}  // namespace
}  // namespace halden
