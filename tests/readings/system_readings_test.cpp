// The readings of the whole system. All expected texts are worked out on paper.
#include <gtest/gtest.h>

#include "readings/readings.h"

namespace halden {
namespace {

// Over range of any phase spreads, also of one that the wiring does not use; a derived -1 is a number.
TEST(SystemPower, AddsThePhasesOfTheWiring) {
  const struct {
    Wiring wiring;
    double raw[3];
    DerivedRaw sum;
    const char* texts;
  } cases[] = {{Wiring::w1p2w, {1000, 2000, 3000}, 1000, "100.0W 100.0VAR"},
               {Wiring::w1p3w, {1000, 2000, 3000}, 3000, "300.0W 300.0VAR"},
               {Wiring::w3p3w, {1000, 2000, 3000}, 6000, "600.0W 600.0VAR"},
               {Wiring::w3p4w, {1000, 2000, -3000}, 0, "000.0W 000.0VAR"},
               {Wiring::w1p2w, {-1, 1000, 1000}, {}, "  OL  -000.1VAR"},
               {Wiring::w1p2w, {1000, -1, 1000}, {}, "  OL  100.0VAR"},
               {Wiring::w1p2w, {1000, 1000, -1}, {}, "  OL  100.0VAR"}};
  for (const auto& c : cases) {
    const Scaling scaling = {.ct_ratio = 1, .pt_ratio = 1, .wiring_system = c.wiring};
    Readings readings(scaling);
    readings.system_active_power(from_meter(c.raw[0]), from_meter(c.raw[1]), from_meter(c.raw[2]));
    readings.system_reactive_power(c.raw[0], c.raw[1], c.raw[2]);
    EXPECT_EQ(readings.system_w_text + ' ' + readings.system_var_text, c.texts);
    EXPECT_EQ(readings.system_w_raw, c.sum) << c.texts;
  }
}

TEST(SystemPower, ApparentPowerAndPowerFactor) {
  const struct {
    DerivedRaw w, var;
    const char* va_text;
    std::optional<std::int32_t> pf;
    const char* pf_text;
  } cases[] = {
      {3000, 4000, "500.0VA", 600, "0.60"},  // 6003 \ 10
      {-3000, 4000, "500.0VA", -600, "-0.60"},
      {-4000, 0, "400.0VA", -1000, "-1.00"},  // -10005 \ 10
      {12346, 0, "1.235KVA", 1000, "1.00"},   // rounded where the phase cuts
      {0, 0, "000.0VA", 0, "0.00"},
      {1000, 1000, "141.4VA", 707, "0.70"},  // 1414.21; 10005 x 0.70711 = 7074.6 -> 7075 \ 10
      {1000, -1, "100.0VA", 1000, "1.00"},
      {{}, 1000, "  OL ", {}, "   OL "},  // three blanks
      {1000, {}, "  OL ", {}, "   OL "},
  };
  const Scaling scaling = {1, 1};
  for (const auto& c : cases) {
    Readings readings(scaling);
    readings.system_w_raw = c.w;
    readings.system_var_raw = c.var;
    readings.system_apparent_power();
    readings.system_power_factor();
    EXPECT_EQ(readings.system_va_text, c.va_text);
    EXPECT_EQ(readings.system_va_raw.has_value(), c.pf.has_value());
    EXPECT_EQ(readings.system_pf_text, c.pf_text);
    EXPECT_EQ(readings.system_pf_raw, c.pf);
    EXPECT_EQ(readings.pf_raw, c.pf);
  }
}

// CT 2000 and PT 1200: 3 x 20000 x 2.4e6 = 1.44e11 counts of 0.1 W.
TEST(SystemPower, HasNo32BitLimit) {
  const Scaling scaling = {2000, 1200};
  Readings readings(scaling);
  readings.system_active_power(20000, 20000, 20000);
  readings.system_reactive_power(20000, 20000, 5000);  // 45000 x 2.4e6
  readings.system_apparent_power();                    // 75000 x 2.4e6
  readings.system_power_factor();
  EXPECT_EQ(readings.system_w_text + ' ' + readings.system_var_text + ' ' + readings.system_va_text + ' ' +
                readings.system_pf_text,
            "14.40GW 10.80GVAR 18.00GVA 0.80");
}

}  // namespace
}  // namespace halden
