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

TEST(SystemPower, ApparentPowerAndPowerFactor) {
  const struct {
    double w, var;
    const char* va_text;
    std::int32_t pf;
    const char* pf_text;
  } cases[] = {
      {3000, 4000, "500.0VA", 600, "0.60"},  // 6003 \ 10
      {-3000, 4000, "500.0VA", -600, "-0.60"},
      {-4000, 0, "400.0VA", -1000, "-1.00"},  // -10005 \ 10
      {12346, 0, "1.235KVA", 1000, "1.00"},   // rounded where the phase cuts
      {0, 0, "000.0VA", 0, "0.00"},
      {1000, 1000, "141.4VA", 707, "0.70"},  // 1414.21; 10005 x 0.70711 = 7074.6 -> 7075 \ 10
      {-1, 1000, "  OL ", -1, "   OL "},     // three blanks
      {1000, -1, "  OL ", -1, "   OL "},
  };
  const Scaling scaling = wired(0);
  for (const auto& c : cases) {
    Readings readings(scaling);
    readings.system_active_power(c.w, 0, 0);
    readings.system_reactive_power(c.var, 0, 0);
    readings.system_apparent_power();
    readings.system_power_factor();
    EXPECT_EQ(readings.system_va_text, c.va_text);
    EXPECT_EQ(readings.system_va_raw == -1, c.pf == -1);
    EXPECT_EQ(readings.system_pf_text, c.pf_text);
    EXPECT_EQ(readings.system_pf_raw, c.pf);
    EXPECT_EQ(readings.pf_raw, c.pf);
  }
}

// Also one that the wiring does not use.
TEST(SystemPower, OverRangeOfAnyPhaseSpreads) {
  const Scaling scaling = wired(0);
  for (int phase = 0; phase < 3; ++phase) {
    Readings readings(scaling);
    double raw[3] = {1000, 1000, 1000};
    raw[phase] = -1;
    readings.system_active_power(raw[0], raw[1], raw[2]);
    readings.system_reactive_power(raw[0], raw[1], raw[2]);
    EXPECT_EQ(readings.system_w_text + readings.system_var_text, "  OL   OL ") << phase;
    EXPECT_EQ(readings.system_w_raw, -1) << phase;
    EXPECT_EQ(readings.system_var_raw, -1) << phase;
  }
}

TEST(SystemPower, OverflowAbandonsTheMember) {
  Scaling scaling = wired(3);
  Readings readings(scaling);
  readings.system_active_power(1000, 1000, 1000);
  readings.system_reactive_power(1000, 1000, 2000);
  readings.system_apparent_power();
  readings.system_power_factor();
  const auto expect_unchanged = [&] {
    EXPECT_EQ(readings.system_w_text, "300.0W");
    EXPECT_EQ(readings.system_var_text, "400.0VAR");
    EXPECT_EQ(readings.system_va_text, "500.0VA");
    EXPECT_EQ(readings.system_va_raw, 5000);
    EXPECT_EQ(readings.system_pf_text, "0.60");
    EXPECT_EQ(readings.system_pf_raw, 600);
  };

  // Each phase alone would fit: 20000 x 100 x 1000 = 2e9, but not the sum.
  scaling.ct_ratio = 100;
  scaling.pt_ratio = 1000;
  readings.system_active_power(20000, 20000, 20000);
  readings.system_reactive_power(20000, 20000, 20000);
  EXPECT_EQ(readings.system_w_raw, 3000);
  EXPECT_EQ(readings.system_var_raw, 4000);
  readings.system_w_raw = readings.system_var_raw = 20000;  // each fits, 28284 x 100000 does not
  readings.system_apparent_power();
  expect_unchanged();

  // W of now against the VA that an abandoned call left behind: 10005 x -1e11 / 5000 \ 10 = -2e10.
  readings.system_w_raw = -1e11;
  readings.system_power_factor();
  expect_unchanged();
}

}  // namespace
}  // namespace halden
