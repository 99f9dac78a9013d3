// Energy and demand over many sampling instants. All expected texts are worked out on paper.
#include <gtest/gtest.h>

#include "readings/readings.h"

namespace halden {
namespace {

class Accumulators : public testing::Test {
 protected:
  // The texts after one more instant of 2 s with these system values.
  std::string energies(DerivedRaw w, DerivedRaw var, DerivedRaw va) {
    readings.system_w_raw = w;
    readings.system_var_raw = var;
    readings.system_va_raw = va;
    readings.advance_energy_wh(2);
    readings.advance_energy_varh(2);
    readings.advance_energy_vah(2);
    readings.energy_power_factor();
    return readings.energy_wh_text + ' ' + readings.energy_varh_text + ' ' + readings.energy_vah_text + ' ' +
           readings.energy_pf_text;
  }

  // The maximum and average texts of W, then those of VA, after `count` more samples every `t` seconds.
  std::string samples(int count, DerivedRaw w, DerivedRaw va, double t = 2) {
    readings.system_w_raw = w;
    readings.system_va_raw = va;
    for (int i = 0; i < count; ++i) {
      readings.count_demand_sample();
      readings.advance_maximum_demand_w(t);
      readings.advance_maximum_demand_va(t);
      readings.advance_average_demand_w(t);
      readings.advance_average_demand_va(t);
      readings.logger_reset_md_ad_counter(t);
    }
    return readings.demand_w_text + '|' + readings.average_w_text + '|' + readings.demand_va_text + '|' +
           readings.average_va_text;
  }

  Scaling scaling{.ct_ratio = 1, .pt_ratio = 1, .md_period = 1};
  Readings readings{scaling};
};

TEST_F(Accumulators, EnergyGrowsWithEveryCallExceptOverRange) {
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "0.00H");
  // 3600 W: 2 s are 2 Wh.
  EXPECT_EQ(energies(36000, -36000, 72000), "002.0WH -002.0VARH 004.0VAH 0.50H");
  EXPECT_EQ(energies(36000, -36000, 72000), "004.0WH -004.0VARH 008.0VAH 0.50H");
  EXPECT_EQ(energies({}, {}, {}), "  OL    OL    OL  0.50H");
  EXPECT_EQ(readings.energy_wh, 72000);
  EXPECT_EQ(readings.energy_varh, -72000);
  EXPECT_EQ(readings.energy_vah, 144000);

  readings.energy_wh = -86400;
  for (const auto& [w, va, pf] : {std::tuple<DerivedRaw, DerivedRaw, const char*>({}, 1000, "0.50H"),
                                  {1000, {}, "0.50H"},
                                  {1000, 1000, "-0.60H"}}) {
    readings.system_w_raw = w;
    readings.system_va_raw = va;
    readings.energy_power_factor();
    EXPECT_EQ(readings.energy_pf_text, pf) << w.has_value();
  }
}

// 360000 x 2 / 3600 = 200 counts before the ratios. Energies have no 32-bit limit.
TEST_F(Accumulators, EnergyUnits) {
  const struct {
    double raw;
    Scaling scaling;
    const char* text;
  } cases[] = {
      {360000, {1, 1, 1.2f, 0}, "024.0WH"},          {360000, {1, 1, 1.0f, 1}, "0.200KWH"},
      {360000, {1000, 1, 1.0f, 0}, "20.00KWH"},       // 2e5 -> 2000 at exponent 2
      {360000, {1000, 100, 1.0f, 0}, "2.000MWH"},     // 2e7 -> exponent 4
      {360000, {10000, 10000, 1.0f, 0}, "2.000GWH"},  // 2e10 -> exponent 7
      {360000, {10000, 10000, 1.0f, 3}, "2.000TWH"},  // exponent 10
      {3.6e8, {10000, 10000, 1.0f, 3}, "2.000TWH"},   // exponent 13: there is no larger unit
      {22222800, {1, 1, 1.0f, 0}, "1.235KWH"},        // x 2 / 3600 = 12346, rounded
  };
  for (const auto& c : cases) {
    scaling = c.scaling;
    readings.energy_wh = 0;
    readings.system_w_raw = c.raw;
    readings.advance_energy_wh(2);
    EXPECT_EQ(readings.energy_wh_text, c.text);
  }
}

TEST_F(Accumulators, ADemandPeriodCompletesShowsAndStartsAnew) {
  EXPECT_EQ(samples(29, 1000, 2000), "------||------|");
  EXPECT_EQ(samples(1, 1000, 2000), "100.0W|100.0W|200.0VA|200.0VA") << "the 30th: 60 s";
  EXPECT_EQ(samples(30, 500, 500), "100.0W|050.0W|200.0VA|050.0VA");
  samples(15, 1000, 3000);  // half the time each: 2000 and 4000 on average
  EXPECT_EQ(samples(15, 3000, 5000), "200.0W|200.0W|400.0VA|400.0VA");
  EXPECT_EQ(samples(30, -1000, 1000), "200.0W|-100.0W|400.0VA|100.0VA") << "an average, but no maximum";
}

TEST_F(Accumulators, AnEqualDemandIsShownAnewAndALargeOneToo) {
  samples(30, 1000, 1000);
  scaling.ct_ratio = 2;
  EXPECT_EQ(samples(30, 1000, 1000), "200.0W|200.0W|200.0VA|200.0VA");
  scaling.ct_ratio = 10000;
  scaling.pt_ratio = 1000;  // 2000 x 1e7 = 2e10 counts, beyond 32 bits
  EXPECT_EQ(samples(30, 2000, 2000), "2.000GW|2.000GW|2.000GVA|2.000GVA");
}

TEST_F(Accumulators, DemandPeriodsFollowTheSamplingTime) {
  EXPECT_EQ(samples(40, 1000, 1000, 0), "------||------|") << "without one none completes";
  EXPECT_EQ(samples(1, 1000, 1000), "100.0W|100.0W|100.0VA|100.0VA");
  // 60 / 7 = 8.57: the period ends with the sample after it.
  EXPECT_EQ(samples(8, 2000, 2000, 7), "100.0W|100.0W|100.0VA|100.0VA");
  EXPECT_EQ(samples(1, 2000, 2000, 7), "200.0W|200.0W|200.0VA|200.0VA");
}

TEST_F(Accumulators, WithoutADemandPeriodEverySampleIsOne) {
  scaling.md_period = 0;
  readings.advance_average_demand_w(2);  // before any sample was counted: nothing to divide by
  EXPECT_EQ(readings.average_w_text, "");
  EXPECT_EQ(samples(1, 1000, 1000), "100.0W|100.0W|100.0VA|100.0VA");
}

// 29 x 15 / 30 = 14.5 -> 15; a sum with -1 in it would give 14.47, 29 samples alone no average at all.
TEST_F(Accumulators, OverRangeCountsTheSampleButAddsNothing) {
  samples(14, 15, 15);
  EXPECT_EQ(samples(1, {}, {}), "  OL |  OL |  OL |  OL ");
  EXPECT_EQ(samples(15, 15, 15), "001.5W|001.5W|001.5VA|001.5VA");
}

// Without a maximum so far there is none to be shown again.
TEST_F(Accumulators, AfterAnOverRangeTheKeptMaximumIsShownAgain) {
  samples(1, {}, {});
  EXPECT_EQ(samples(29, -1000, 0), "------|-096.7W|000.0VA|000.0VA") << "29 x -1000 / 30";
  samples(30, 2000, 2000);
  samples(1, {}, {});
  EXPECT_EQ(samples(28, 1000, 1000), "  OL |  OL |  OL |  OL ");
  EXPECT_EQ(samples(1, 1000, 1000), "200.0W|096.7W|200.0VA|096.7VA");
}

TEST_F(Accumulators, TheEnergyResetStartsEverythingFromZero) {
  samples(45, 1000, 2000);
  energies(36000, 36000, 72000);
  readings.reset_energy_and_demand();
  EXPECT_EQ(samples(29, 10, 20), "------||------|");
  EXPECT_EQ(samples(1, 10, 20), "001.0W|001.0W|002.0VA|002.0VA") << "lower than the old maxima";
  EXPECT_EQ(energies(36000, 36000, 72000), "002.0WH 002.0VARH 004.0VAH 0.50H");
}

}  // namespace
}  // namespace halden
