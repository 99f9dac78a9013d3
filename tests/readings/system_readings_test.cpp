// The readings of the whole system. All expected texts are worked out on paper.
#include <gtest/gtest.h>

#include "readings/readings.h"

namespace halden {
namespace {

// Over range of any phase spreads, also of one that the wiring does not use.
TEST(SystemPower, AddsThePhasesOfTheWiring) {
  const struct {
    Wiring wiring;
    double raw[3];
    double sum;
    const char* texts;
  } cases[] = {{Wiring::w1p2w, {1000, 2000, 3000}, 1000, "100.0W 100.0VAR"},
               {Wiring::w1p3w, {1000, 2000, 3000}, 3000, "300.0W 300.0VAR"},
               {Wiring::w3p3w, {1000, 2000, 3000}, 6000, "600.0W 600.0VAR"},
               {Wiring::w3p4w, {1000, 2000, -3000}, 0, "000.0W 000.0VAR"},
               {Wiring::w1p2w, {-1, 1000, 1000}, -1, "  OL    OL "},
               {Wiring::w1p2w, {1000, -1, 1000}, -1, "  OL    OL "},
               {Wiring::w1p2w, {1000, 1000, -1}, -1, "  OL    OL "}};
  for (const auto& c : cases) {
    const Scaling scaling = {.ct_ratio = 1, .pt_ratio = 1, .wiring_system = c.wiring};
    Readings readings(scaling);
    readings.system_active_power(c.raw[0], c.raw[1], c.raw[2]);
    readings.system_reactive_power(c.raw[0], c.raw[1], c.raw[2]);
    EXPECT_EQ(readings.system_w_text + ' ' + readings.system_var_text, c.texts);
    EXPECT_EQ(readings.system_w_raw, c.sum) << c.texts;
    EXPECT_EQ(readings.system_var_raw, c.sum) << c.texts;
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
  const Scaling scaling = {1, 1};
  for (const auto& c : cases) {
    Readings readings(scaling);
    readings.system_w_raw = c.w;
    readings.system_var_raw = c.var;
    readings.system_apparent_power();
    readings.system_power_factor();
    EXPECT_EQ(readings.system_va_text, c.va_text);
    EXPECT_EQ(readings.system_va_raw == -1, c.pf == -1);
    EXPECT_EQ(readings.system_pf_text, c.pf_text);
    EXPECT_EQ(readings.system_pf_raw, c.pf);
    EXPECT_EQ(readings.pf_raw, c.pf);
  }
}

TEST(SystemPower, OverflowAbandonsTheMember) {
  Scaling scaling = {1, 1};
  Readings readings(scaling);
  readings.system_active_power(1000, 1000, 1000);
  readings.system_reactive_power(1000, 1000, 2000);
  readings.system_apparent_power();
  readings.system_power_factor();

  // Each phase alone would fit: 20000 x 100 x 1000 = 2e9, but not the sum.
  scaling = {100, 1000};
  readings.system_active_power(20000, 20000, 20000);
  readings.system_reactive_power(20000, 20000, 20000);
  EXPECT_EQ(readings.system_w_raw, 3000);
  EXPECT_EQ(readings.system_var_raw, 4000);
  readings.system_w_raw = readings.system_var_raw = 20000;  // each fits, 28284 x 100000 does not
  readings.system_apparent_power();
  // W of now against the VA that an abandoned call left behind: 10005 x -1e11 / 5000 \ 10 = -2e10.
  readings.system_w_raw = -1e11;
  readings.system_power_factor();

  EXPECT_EQ(readings.system_w_text + ' ' + readings.system_var_text + ' ' + readings.system_va_text + ' ' +
                readings.system_pf_text,
            "300.0W 400.0VAR 500.0VA 0.60");
  EXPECT_EQ(readings.system_va_raw, 5000);
  EXPECT_EQ(readings.system_pf_raw, 600);
}

}  // namespace
}  // namespace halden
