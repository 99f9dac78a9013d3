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

  // The once-per-sample work with the given system values.
  void sample(double w, double va, double t) {
    readings.system_w_raw = w;
    readings.system_va_raw = va;
    readings.count_demand_sample();
    readings.advance_maximum_demand_w(t);
    readings.advance_maximum_demand_va(t);
    readings.advance_average_demand_w(t);
    readings.advance_average_demand_va(t);
    readings.reset_demand_period(t);
  }

  void samples(int count, double w, double va, double t = 2) {
    for (int i = 0; i < count; ++i) sample(w, va, t);
  }

  void expect_demand(const char* maximum_w, const char* average_w, const char* maximum_va,
                     const char* average_va) {
    EXPECT_EQ(readings.demand_w_text, maximum_w);
    EXPECT_EQ(readings.average_w_text, average_w);
    EXPECT_EQ(readings.demand_va_text, maximum_va);
    EXPECT_EQ(readings.average_va_text, average_va);
  }

  Scaling scaling;
  Readings readings{scaling};
};

TEST_F(Accumulators, EnergyGrowsWithEveryCall) {
  readings.system_w_raw = 36000;  // 3600 W: 2 s are 2 Wh
  readings.system_var_raw = -36000;
  readings.system_va_raw = 72000;
  const char* const wh[] = {"002.0WH", "004.0WH", "006.0WH"};
  const char* const varh[] = {"-002.0VARH", "-004.0VARH", "-006.0VARH"};
  const char* const vah[] = {"004.0VAH", "008.0VAH", "012.0VAH"};
  for (int call = 0; call < 3; ++call) {
    readings.advance_energy_wh(2);
    readings.advance_energy_varh(2);
    readings.advance_energy_vah(2);
    readings.energy_power_factor();
    EXPECT_EQ(readings.energy_wh_text, wh[call]);
    EXPECT_EQ(readings.energy_varh_text, varh[call]);
    EXPECT_EQ(readings.energy_vah_text, vah[call]);
    EXPECT_EQ(readings.energy_pf_text, "0.50H");
  }
  EXPECT_EQ(readings.energy_wh, 108000);
  EXPECT_EQ(readings.energy_varh, -108000);
  EXPECT_EQ(readings.energy_vah, 216000);
  EXPECT_EQ(readings.energy_pf_raw, 500);
}

// 360000 x 2 / 3600 = 200 counts before the ratios. Energies have no 32-bit limit.
TEST_F(Accumulators, EnergyUnits) {
  const struct {
    int ct, pt;
    float clamp;
    int range;
    const char* text;
  } cases[] = {
      {1, 1, 1.0f, 0, "020.0WH"},          {1, 1, 1.2f, 0, "024.0WH"},
      {1, 1, 1.0f, 1, "0.200KWH"},         {1000, 1, 1.0f, 0, "20.00KWH"},  // 2e5 -> 2000 at exponent 2
      {1000, 100, 1.0f, 0, "2.000MWH"},                                     // 2e7 -> exponent 4
      {10000, 10000, 1.0f, 0, "2.000GWH"},                                  // 2e10 -> exponent 7
      {10000, 10000, 1.0f, 3, "2.000TWH"},                                  // exponent 10
  };
  for (const auto& c : cases) {
    Scaling own;
    own.ct_ratio = static_cast<std::int16_t>(c.ct);
    own.pt_ratio = static_cast<std::int16_t>(c.pt);
    own.current_scale = c.clamp;
    own.current_range = static_cast<std::int16_t>(c.range);
    Readings own_readings(own);
    own_readings.system_w_raw = 360000;
    own_readings.advance_energy_wh(2);
    EXPECT_EQ(own_readings.energy_wh_text, c.text);
  }
}

TEST_F(Accumulators, EnergyRoundsDigits) {
  readings.system_w_raw = 22222800;  // x 2 / 3600 = 12346
  readings.advance_energy_wh(2);
  EXPECT_EQ(readings.energy_wh_text, "1.235KWH");
}

TEST_F(Accumulators, OverRangeAddsNoEnergy) {
  readings.system_w_raw = readings.system_var_raw = readings.system_va_raw = 36000;
  readings.advance_energy_wh(2);
  readings.advance_energy_varh(2);
  readings.advance_energy_vah(2);
  readings.energy_power_factor();
  ASSERT_EQ(readings.energy_pf_text, "1.00H");

  readings.system_w_raw = readings.system_var_raw = readings.system_va_raw = -1;
  readings.advance_energy_wh(2);
  readings.advance_energy_varh(2);
  readings.advance_energy_vah(2);
  EXPECT_EQ(readings.energy_wh_text, "  OL ");
  EXPECT_EQ(readings.energy_varh_text, "  OL ");
  EXPECT_EQ(readings.energy_vah_text, "  OL ");
  EXPECT_EQ(readings.energy_wh, 36000);
  EXPECT_EQ(readings.energy_varh, 36000);
  EXPECT_EQ(readings.energy_vah, 36000);

  readings.energy_wh = 18000;
  readings.energy_power_factor();
  readings.system_w_raw = 1000;  // VA alone is over range
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "1.00H");
  EXPECT_EQ(readings.energy_pf_raw, 1000);
  readings.system_va_raw = 1000;
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "0.50H");
}

TEST_F(Accumulators, EnergyPowerFactorOfNothingAndOfGeneration) {
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "0.00H");
  readings.energy_wh = -30000;
  readings.energy_vah = 50000;
  readings.energy_power_factor();
  EXPECT_EQ(readings.energy_pf_text, "-0.60H");
  EXPECT_EQ(readings.energy_pf_raw, -600);
}

TEST_F(Accumulators, ADemandPeriodCompletesShowsAndStartsAnew) {
  expect_demand("------", "", "------", "");
  samples(29, 1000, 2000);
  expect_demand("------", "", "------", "");
  EXPECT_EQ(readings.demand_samples, 29);
  EXPECT_EQ(readings.demand_w_sum, 29000);
  EXPECT_EQ(readings.average_va_sum, 58000);

  sample(1000, 2000, 2);  // the 30th: 60 s
  expect_demand("100.0W", "100.0W", "200.0VA", "200.0VA");
  EXPECT_EQ(readings.demand_samples, 0);
  EXPECT_EQ(readings.demand_w_sum, 0);
  EXPECT_EQ(readings.demand_va_sum, 0);
  EXPECT_EQ(readings.average_w_sum, 0);
  EXPECT_EQ(readings.average_va_sum, 0);

  samples(30, 500, 500);
  expect_demand("100.0W", "050.0W", "200.0VA", "050.0VA");
  EXPECT_EQ(readings.max_demand_w, 1000);
  EXPECT_EQ(readings.average_demand_w, 500);

  samples(15, 1000, 3000);  // half the time each: 2000 and 4000 on average
  samples(15, 3000, 5000);
  expect_demand("200.0W", "200.0W", "400.0VA", "400.0VA");
  EXPECT_EQ(readings.max_demand_va, 4000);
  EXPECT_EQ(readings.average_demand_va, 4000);
}

TEST_F(Accumulators, AnEqualDemandIsShownAnew) {
  samples(30, 1000, 1000);
  scaling.ct_ratio = 2;
  samples(30, 1000, 1000);
  expect_demand("200.0W", "200.0W", "200.0VA", "200.0VA");
}

TEST_F(Accumulators, APeriodThatIsNoMultipleOfTheSamplingTimeEndsWithTheSampleAfterIt) {
  samples(8, 1000, 1000, 7);  // 60 / 7 = 8.57
  EXPECT_EQ(readings.average_w_text, "");
  sample(1000, 1000, 7);
  EXPECT_EQ(readings.average_w_text, "100.0W");
  EXPECT_EQ(readings.demand_samples, 0);
}

TEST_F(Accumulators, WithoutASamplingTimeNoPeriodCompletes) {
  samples(40, 1000, 1000, 0);
  expect_demand("------", "", "------", "");
  EXPECT_EQ(readings.demand_samples, 40);
  EXPECT_EQ(readings.demand_w_sum, 40000);
}

TEST_F(Accumulators, WithoutADemandPeriodEverySampleIsOne) {
  scaling.md_period = 0;
  readings.advance_average_demand_w(2);  // before any sample was counted: nothing to divide by
  EXPECT_EQ(readings.average_w_text, "");
  sample(1000, 1000, 2);
  expect_demand("100.0W", "100.0W", "100.0VA", "100.0VA");
}

TEST_F(Accumulators, NegativeDemandIsAnAverageButNoMaximum) {
  samples(30, -1000, 1000);
  expect_demand("------", "-100.0W", "100.0VA", "100.0VA");
  EXPECT_EQ(readings.max_demand_w, 0);
  EXPECT_EQ(readings.average_demand_w, -1000);
}

TEST_F(Accumulators, OverRangeCountsTheSampleButAddsNothing) {
  samples(14, 1000, 1000);
  sample(-1, -1, 2);
  expect_demand("  OL ", "  OL ", "  OL ", "  OL ");
  EXPECT_EQ(readings.demand_samples, 15);
  EXPECT_EQ(readings.demand_w_sum, 14000);
  EXPECT_EQ(readings.average_va_sum, 14000);
  samples(15, 1000, 1000);
  expect_demand("096.7W", "096.7W", "096.7VA", "096.7VA");  // 29000 / 30 = 966.67
}

TEST_F(Accumulators, AnOverflowingDemandKeepsWhatItShowed) {
  samples(30, 1000, 1000);
  scaling.ct_ratio = 10000;
  scaling.pt_ratio = 1000;  // 2000 x 1e7 = 2e10
  samples(30, 2000, 2000);
  expect_demand("100.0W", "100.0W", "100.0VA", "100.0VA");
  EXPECT_EQ(readings.max_demand_w, 1000);
  EXPECT_EQ(readings.average_demand_w, 1000);
  EXPECT_EQ(readings.max_demand_va, 1000);
  EXPECT_EQ(readings.average_demand_va, 1000);
}

TEST_F(Accumulators, TheAverageVaSumIsA32BitNumber) {
  readings.system_va_raw = 2.5;
  readings.advance_average_demand_va(2);
  EXPECT_EQ(readings.average_va_sum, 2);  // half to even
  readings.average_va_sum = 2147483000;
  readings.system_va_raw = 1000;
  readings.advance_average_demand_va(2);
  EXPECT_EQ(readings.average_va_sum, 2147483000);
  readings.system_va_raw = 647;
  readings.advance_average_demand_va(2);
  EXPECT_EQ(readings.average_va_sum, 2147483647);
}

TEST_F(Accumulators, TheEnergyResetStartsEverythingFromZero) {
  samples(45, 1000, 2000);
  readings.system_var_raw = 1000;
  readings.advance_energy_wh(2);
  readings.advance_energy_varh(2);
  readings.advance_energy_vah(2);
  readings.energy_power_factor();

  readings.reset_energy_and_demand();
  EXPECT_EQ(readings.energy_wh, 0);
  EXPECT_EQ(readings.energy_varh, 0);
  EXPECT_EQ(readings.energy_vah, 0);
  EXPECT_EQ(readings.energy_pf_raw, 0);
  EXPECT_EQ(readings.demand_samples, 0);
  EXPECT_EQ(readings.demand_w_sum, 0);
  EXPECT_EQ(readings.demand_va_sum, 0);
  EXPECT_EQ(readings.average_w_sum, 0);
  EXPECT_EQ(readings.average_va_sum, 0);
  EXPECT_EQ(readings.average_demand_w, 0);
  EXPECT_EQ(readings.average_demand_va, 0);
  expect_demand("------", "", "------", "");

  // The old maxima are gone: a lower demand shows again.
  samples(30, 10, 20);
  expect_demand("001.0W", "001.0W", "002.0VA", "002.0VA");
}

}  // namespace
}  // namespace halden
