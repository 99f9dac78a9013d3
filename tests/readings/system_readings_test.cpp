// The readings of the whole system. All expected texts are worked out on paper.
#include <gtest/gtest.h>

#include "readings/readings.h"

namespace halden {
namespace {

Scaling wired(int wiring_system) {
  Scaling scaling;
  scaling.ct_ratio = scaling.pt_ratio = 1;
  scaling.wiring_system = static_cast<std::int16_t>(wiring_system);
  return scaling;
}

TEST(SystemPower, AddsThePhasesOfTheWiring) {
  const struct {
    int wiring;
    double sum;
    const char* w_text;
    const char* var_text;
  } cases[] = {{0, 1000, "100.0W", "-100.0VAR"},
               {1, 3000, "300.0W", "-300.0VAR"},
               {2, 6000, "600.0W", "-600.0VAR"},
               {3, 6000, "600.0W", "-600.0VAR"}};
  for (const auto& c : cases) {
    const Scaling scaling = wired(c.wiring);
    Readings readings(scaling);
    readings.system_active_power(1000, 2000, 3000);
    readings.system_reactive_power(-1000, -2000, -3000);
    EXPECT_EQ(readings.system_w_text, c.w_text);
    EXPECT_EQ(readings.system_w_raw, c.sum);
    EXPECT_EQ(readings.system_var_text, c.var_text);
    EXPECT_EQ(readings.system_var_raw, -c.sum);
  }
}

// One phase and the system made of it may differ in the last digit: the phase cuts, the system rounds.
TEST(SystemPower, RoundsWhereThePhaseCuts) {
  const Scaling scaling = wired(0);
  Readings readings(scaling);
  const struct {
    double w;
    const char* phase;
    const char* system;
  } cases[] = {{12346, "1.234KW", "1.235KW"},
               {-12346, "-1.234KW", "-1.235KW"},
               {19999, "1.999KW", "2.000KW"},
               {99996, "9.999KW", "10.00KW"},
               {12344, "1.234KW", "1.234KW"}};
  for (const auto& c : cases) {
    readings.active_power(c.w);
    readings.system_active_power(c.w, 0, 0);
    EXPECT_EQ(readings.power_text, c.phase);
    EXPECT_EQ(readings.system_w_text, c.system);
  }
}

TEST(SystemPower, ApparentPowerAndPowerFactor) {
  const Scaling scaling = wired(0);
  const struct {
    double w, var;
    const char* va_text;
    std::int32_t pf;
    const char* pf_text;
  } cases[] = {
      {3000, 4000, "500.0VA", 600, "0.60"},                                            // 6003 \ 10
      {-3000, 4000, "500.0VA", -600, "-0.60"}, {-4000, 0, "400.0VA", -1000, "-1.00"},  // -10005 \ 10
      {4000, 0, "400.0VA", 1000, "1.00"},      {0, 0, "000.0VA", 0, "0.00"},
      {1000, 1000, "141.4VA", 707, "0.70"},  // 1414.21; 10005 x 0.70711 = 7074.6 -> 7075 \ 10
  };
  for (const auto& c : cases) {
    Readings readings(scaling);
    readings.system_active_power(c.w, 0, 0);
    readings.system_reactive_power(c.var, 0, 0);
    readings.system_apparent_power();
    readings.system_power_factor();
    EXPECT_EQ(readings.system_va_text, c.va_text);
    EXPECT_EQ(readings.system_pf_text, c.pf_text);
    EXPECT_EQ(readings.system_pf_raw, c.pf);
    EXPECT_EQ(readings.pf_raw, c.pf);
  }
}

TEST(SystemPower, OverRangeSpreads) {
  const Scaling scaling = wired(0);
  for (int phase = 0; phase < 3; ++phase) {
    Readings readings(scaling);
    double w[3] = {1000, 1000, 1000};
    w[phase] = -1;
    readings.system_active_power(w[0], w[1], w[2]);
    EXPECT_EQ(readings.system_w_text, "  OL ") << phase;
    EXPECT_EQ(readings.system_w_raw, -1);
    readings.system_reactive_power(w[0], w[1], w[2]);
    EXPECT_EQ(readings.system_var_text, "  OL ") << phase;
    EXPECT_EQ(readings.system_var_raw, -1);
  }
  for (const bool w_is_over : {true, false}) {
    Readings readings(scaling);
    readings.system_active_power(w_is_over ? -1 : 1000, 0, 0);
    readings.system_reactive_power(w_is_over ? 1000 : -1, 0, 0);
    readings.system_apparent_power();
    readings.system_power_factor();
    EXPECT_EQ(readings.system_va_text, "  OL ");
    EXPECT_EQ(readings.system_va_raw, -1);
    EXPECT_EQ(readings.system_pf_text, "   OL ");  // three blanks
    EXPECT_EQ(readings.system_pf_raw, -1);
    EXPECT_EQ(readings.pf_raw, -1);
  }
}

TEST(SystemPower, OverflowAbandonsTheMember) {
  Scaling scaling = wired(3);
  Readings readings(scaling);
  readings.system_active_power(1000, 1000, 1000);
  readings.system_reactive_power(1000, 1000, 2000);
  readings.system_apparent_power();

  // Each phase alone would fit: 20000 x 100 x 1000 = 2e9, but not the sum.
  scaling.ct_ratio = 100;
  scaling.pt_ratio = 1000;
  readings.system_active_power(20000, 20000, 20000);
  readings.system_reactive_power(20000, 20000, 20000);
  EXPECT_EQ(readings.system_w_text, "300.0W");
  EXPECT_EQ(readings.system_w_raw, 3000);
  EXPECT_EQ(readings.system_var_text, "400.0VAR");
  EXPECT_EQ(readings.system_var_raw, 4000);

  readings.system_w_raw = 20000;
  readings.system_var_raw = 20000;  // each fits, 28284 x 100000 does not
  readings.system_apparent_power();
  EXPECT_EQ(readings.system_va_text, "500.0VA");
  EXPECT_EQ(readings.system_va_raw, 5000);
}

// W of now against the VA that an abandoned call left behind: 10005 x 1e9 / 1 does not fit the thousandths.
TEST(SystemPower, APowerFactorThatDoesNotFitStays) {
  const Scaling scaling = wired(3);
  Readings readings(scaling);
  readings.system_w_raw = 3000;
  readings.system_va_raw = 5000;
  readings.system_power_factor();
  readings.system_w_raw = -1e10;
  readings.system_va_raw = 1;
  readings.system_power_factor();
  EXPECT_EQ(readings.system_pf_text, "0.60");
  EXPECT_EQ(readings.system_pf_raw, 600);
}

}  // namespace
}  // namespace halden
