// The readings of one phase. All expected texts are worked out on paper; the comments show the arithmetic.
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <span>
#include <string>
#include <tuple>

#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {
namespace {

const Scaling unscaled = {1, 1};

struct Case {
  double raw;
  Scaling scaling;
  const char* text;
};

void expect_texts(void (Readings::*member)(double), std::string Readings::*text,
                  std::span<const Case> cases) {
  for (const Case& c : cases) {
    Readings readings(c.scaling);
    (readings.*member)(c.raw);
    EXPECT_EQ(readings.*text, c.text) << c.raw << " for " << c.text;
  }
}

template <std::size_t inputs>
struct Row {
  std::array<double, inputs> in;
  DerivedRaw raw;  // nothing: over range
  const char* text;
  Scaling scaling = unscaled;
};

template <typename Member, typename Raw, std::size_t inputs, std::size_t count>
void expect_rows(Member member, std::string Readings::*text, Raw Readings::*raw,
                 const Row<inputs> (&rows)[count]) {
  for (const Row<inputs>& row : rows) {
    Readings readings(row.scaling);
    std::apply([&](auto... in) { (readings.*member)(in...); }, row.in);
    EXPECT_EQ(readings.*text, row.text) << testing::PrintToString(row.in);
    EXPECT_EQ(readings.*raw, row.raw) << testing::PrintToString(row.in);
  }
}

// 9999.5 and more would round to five digits: 999.95 -> 1000 at exponent 1, or 10000 \ 10; 99994 is 9999.4 at
// exponent 1, 99995 is 9999.5 and goes on to 999.95 -> 1000 at exponent 2.
TEST(PrefixText, AlwaysFourDigits) {
  const struct {
    double value;
    Division division;
    const char* text;
  } cases[] = {
      {9999.4, Division::real, "999.9W"},
      {9999.5, Division::real, "1.000KW"},
      {9999.6, Division::integer, "1.000KW"},
      {-9999.6, Division::integer, "-1.000KW"},
      {-9999.6, Division::real, "-1.000KW"},
      {99994, Division::real, "9.999KW"},
      {99995, Division::real, "10.00KW"},
      {99995, Division::integer, "9.999KW"},
      {-0.4, Division::real, "000.0W"},
      {-0.5, Division::real, "-000.1W"},
      {1e300 * 1e300, Division::real, "  OL "},
      {std::numeric_limits<double>::quiet_NaN(), Division::integer, "  OL "},
  };
  for (const auto& c : cases) EXPECT_EQ(prefix_text(c.value, 0, c.division, w_units), c.text) << c.value;
}

// 19999 is cut to 1999. Behind a CT range 0 is divided, 6170 \ 10, 15 \ 10 and 20000 \ 10 at exponent 1, the
// others are not. The clamp makes 9998.4 and 9999.6, which would be 10000 with five digits. 99990 is 9999 at
// exponent 4, 1999990000 is 1999 at exponent 9.
TEST(Current, RangesRatiosAndClamp) {
  const Case cases[] = {
      {1234, {1, 1, 1.0f, 0}, "123.4mA"},       {1234, {1, 1, 1.0f, 1}, "1.234A"},
      {-1234, {1, 1, 1.0f, 2}, "-12.34A"},      {1234, {1, 1, 1.0f, 3}, "123.4A"},
      {1234, {1, 1, 1.0f, 7}, "123.4A"},        {1234, {1, 1, 1.0f, -1}, "123.4A"},
      {-5, {1, 1, 1.0f, 0}, "-000.5mA"},        {5, {1, 1, 1.0f, 1}, "0.005A"},
      {19999, {1, 1, 1.0f, 1}, "19.99A"},       {1234, {5, 1, 1.0f, 0}, "0.617A"},
      {3, {5, 1, 1.0f, 0}, "0.001A"},           {1234, {5, 1, 1.0f, 1}, "6.170A"},
      {2000, {10, 1, 1.0f, 0}, "2.000A"},       {1111, {1, 1, 3.0f, 1}, "3.333A"},
      {8332, {1, 1, 1.2f, 1}, "9.998A"},        {8333, {1, 1, 1.2f, 1}, "10.00A"},
      {8333, {1, 1, 1.2f, 0}, "1.000A"},        {9999, {10, 1, 1.0f, 3}, "9.999KA"},
      {199999, {10000, 1, 1.0f, 3}, "199.9MA"}, {-1, {5, 1, 1.2f, 2}, "  OL "},
  };
  expect_texts(&Readings::current, &Readings::current_text, cases);
}

// Clamp and range do not touch voltages.
TEST(Voltage, Units) {
  const Case cases[] = {
      {-2300, {1, 1, 1.2f, 3}, "-230.0V"},    {7, {1, 1, 1.2f, 3}, "000.7V"},
      {9999, {1, 1, 1.2f, 3}, "999.9V"},      {12345, {1, 1, 1.2f, 3}, "1.234KV"},
      {2300, {1, 50, 1.2f, 3}, "11.50KV"},    {23000, {1, 100, 1.2f, 3}, "230.0KV"},
      {23000, {1, 1000, 1.2f, 3}, "2.300MV"}, {50000, {1, 30000, 1.2f, 3}, "150.0MV"},
      {-1, {1, 100, 1.2f, 3}, "  OL "},
  };
  expect_texts(&Readings::voltage, &Readings::voltage_text, cases);
}

// pi is 3.14159, so opposed voltages fall a hair short of 4600: 4599.99.. - 0.5 -> 4599. 2300 x sqrt(3) =
// 3983.72 - 0.5. sqrt(3000^2 + 4000^2 - 31.8) = 4999.997 - 0.5. 0 - 0.5 rounds to 0, not to the over-range
// mark. 2300 - 0.5 and 2301 - 0.5: both halves go to the even 2300.
TEST(LineVoltage, ByTheLawOfCosines) {
  const Row<4> rows[] = {
      {{2300, 2300, 0, 1800}, 4599, "459.9V"},  {{2300, 2300, 0, 1800}, 4599, "45.99KV", {1, 100}},
      {{2300, 2300, -1200, 0}, 3983, "398.3V"}, {{3000, 4000, 900, 0}, 4999, "499.9V"},
      {{2301, 2301, 17, 17}, 0, "000.0V"},      {{0, 2300, 0, 0}, 2300, "230.0V"},
      {{0, 2301, 0, 0}, 2300, "230.0V"},        {{-1, 2300, 0, 1200}, {}, "  OL "},
      {{2300, -1, 0, 1200}, {}, "  OL "},       {{2300, 2300, -1, 1200}, {}, "  OL "},
      {{2300, 2300, 0, -1}, {}, "  OL "}};
  expect_rows(&Readings::line_voltage, &Readings::line_voltage_text, &Readings::line_voltage_raw, rows);
}

// Range 0 with a CT is not divided, unlike the current. 500000 is 5000 at exponent 2, 9999.6 is 10000 \ 10,
// 999900 is 9999 at exponent 5, 99990000 is 9999 at exponent 7.
TEST(ActivePower, CutsDigits) {
  const Case cases[] = {
      {-12345, {1, 1, 1.0f, 1}, "-12.34KW"},  {1234, {1, 1, 1.0f, 2}, "12.34KW"},
      {1234, {1, 1, 1.0f, 3}, "123.4KW"},     {19999, {1, 1, 1.0f, 0}, "1.999KW"},
      {1234, {5, 1, 1.0f, 0}, "617.0W"},      {1000, {5, 100, 1.0f, 0}, "50.00KW"},
      {8333, {1, 1, 1.2f, 0}, "1.000KW"},     {9999, {10, 10, 1.0f, 3}, "99.99MW"},
      {9999, {1000, 10, 1.0f, 3}, "9.999GW"}, {-1, {1, 1, 1.0f, 0}, "  OL "},
      {-2, {1, 1, 1.0f, 0}, "-000.2W"},
  };
  expect_texts(&Readings::active_power, &Readings::power_text, cases);
}

// 11509200 \ 10000 is cut; the sign is that of W, which is not checked: -1 is below 0. 1234.6 rounds (the
// same W would be cut to 1.234KW), 9999.6 has five digits, 999.96 -> 1000.
TEST(ApparentPower, FollowsTheSignOfWAndRoundsDigits) {
  const Row<3> rows[] = {{{2300, 5004, 1000}, 1150, "1.150KVA", {1, 1, 1.0f, 1}},
                         {{2300, 5000, -1}, -1150, "-1.150KVA", {1, 1, 1.0f, 1}},
                         {{2300, 5000, 0}, 1150, "11.50KVA", {1, 1, 1.0f, 2}},
                         {{10000, 12346, 1}, 12346, "1.235KVA", {1, 1, 1.0f, 0}},
                         {{10000, 99996, 1}, 99996, "10.00KVA", {1, 1, 1.0f, 0}},
                         {{1, 1, -5}, 0, "000.0VA", {1, 1, 1.0f, 0}},
                         {{-1, 5000, 1000}, {}, "  OL ", {1, 1, 1.0f, 1}},
                         {{2300, -1, 1000}, {}, "  OL ", {1, 1, 1.0f, 1}}};
  expect_rows(&Readings::apparent_power, &Readings::va_text, &Readings::va_raw, rows);
}

// 400 - 0.5 and 3 - 0.5: halves to the even 400 and 2. 1234.6 rounds. W above VA: no root, and neither -1 nor
// -0. Angles: 3400 -> -200, 1800 and -1800 stay, and -1 is a real angle here.
TEST(ReactivePower, MagnitudeAndSign) {
  const Row<4> rows[] = {{{500, 300, 0, -369}, 400, "040.0VAR"},
                         {{500, 300, 0, 369}, -400, "-040.0VAR"},
                         {{-500, -300, 0, 369}, -400, "-040.0VAR"},
                         {{5, 4, 0, 0}, 2, "000.2VAR"},
                         {{12347, 0, 0, 0}, 12346, "1.235KVAR"},
                         {{1000, 1001, 0, 100}, 0, "000.0VAR"},
                         {{500, 300, 1700, -1700}, -400, "-040.0VAR"},
                         {{500, 300, 900, -900}, 400, "040.0VAR"},
                         {{500, 300, -900, 900}, -400, "-040.0VAR"},
                         {{500, 300, -1, 100}, -400, "-040.0VAR"},
                         {{-1, 0, 0, 0}, 0, "000.0VAR"},       // a VA of -1 is a number
                         {{500, -1, 0, 0}, 499, "049.9VAR"}};  // and so is a W of -1
  expect_rows(&Readings::reactive_power, &Readings::var_text, &Readings::var_raw, rows);
  Readings readings(unscaled);
  readings.reactive_power(std::nullopt, 300, 0, 0);
  EXPECT_EQ(readings.var_text, "  OL ");
  EXPECT_EQ(readings.var_raw, std::nullopt);
  readings.reactive_power(500, 300, 0, 0);
  readings.reactive_power(500, std::nullopt, 0, 0);
  EXPECT_EQ(readings.var_text, "  OL ");
}

// 10005 W / VA, rounded, \ 10, and the text is cut: 6670 \ 10 (with 10000 it would be 666), 9994.995 -> 9995
// \ 10, 9999.9975 -> 10000 \ 10. Limited above, not below: -12006 \ 10. Generating, VA is negative too:
// 5002.5 -> 5002 \ 10. -90 \ 10 = -9, and -9 \ 10 = 0.
TEST(PowerFactor, RatioLimitAndText) {
  const Row<2> rows[] = {{{500, 0}, 0, "0.00"},           {{2, 3}, 667, "0.66"},
                         {{999, 1000}, 999, "0.99"},      {{9995, 10000}, 1000, "1.00"},
                         {{1200, 1000}, 1000, "1.00"},    {{-500, -1000}, 500, "0.50"},
                         {{-1200, 1000}, -1200, "-1.20"}, {{-9, 1000}, -9, "0.00"},
                         {{-1, 1000}, -1, "0.00"},        {{1, -1}, -1000, "-1.00"}};
  expect_rows(&Readings::power_factor, &Readings::pf_text, &Readings::pf_raw, rows);
  Readings readings(unscaled);
  readings.power_factor(999, std::nullopt);
  EXPECT_EQ(readings.pf_text, "  OL ");
  readings.power_factor(999, 1000);
  readings.power_factor(std::nullopt, 1000);
  EXPECT_EQ(readings.pf_text, "  OL ");
}

TEST(PhaseAngle, ComesBackIntoTheCircleOnce) {
  const Row<4> rows[] = {{{2300, 50, 500, 195}, 305, "030.5"},   {{2300, 50, 3500, 0}, -100, "-010.0"},
                         {{2300, 50, 0, 3500}, 100, "010.0"},    {{2300, 50, 1800, 0}, 1800, "180.0"},
                         {{2300, 50, 0, 1800}, -1800, "-180.0"}, {{2300, 50, 1801, 0}, -1799, "-179.9"},
                         {{2300, 50, 0, 1801}, 1799, "179.9"},   {{2300, 50, 5500, 0}, 1900, "190.0"},
                         {{2300, 50, -1, 0}, -1, "-000.1"},      {{-1, 50, 300, 0}, {}, "  OL "},
                         {{2300, -1, 300, 0}, {}, "  OL "}};
  expect_rows(&Readings::phase_angle, &Readings::angle_text, &Readings::angle_raw, rows);
}

// Every product of the chain is 32-bit. One that does not fit leaves what comes after it as of the call
// before: the text, but not a raw value that has been found already.
TEST(Overflow, AbandonsTheMember) {
  Scaling scaling = unscaled;
  Readings readings(scaling);
  readings.current(1234);
  readings.voltage(2300);
  readings.line_voltage(2300, 2300, 0, 1800);
  readings.active_power(1000);
  readings.apparent_power(2300, 5000, 1);
  readings.reactive_power(500, 300, 0, 0);

  readings.apparent_power(50000, 50000, 1);  // 2.5e9 in V x I

  scaling = {30000, 30000};
  readings.current(100000);  // 3e9
  readings.current(-100000);
  readings.voltage(100000);                      // 3e9
  readings.line_voltage(50000, 50000, 0, 1800);  // 99999 x 30000
  readings.active_power(100000);                 // 3e9 already with CT
  readings.apparent_power(50000, 40000, 1);      // 200000 x 30000
  readings.reactive_power(100000, 0, 0, 0);      // 100000 x 30000

  scaling = {1000, 10000};
  readings.active_power(1000);  // 1e6 with CT, 1e10 with PT
  readings.apparent_power(2300, 5000, 1);
  readings.reactive_power(1000, 0, 0, 0);

  scaling = {10000, 1, 1.2f};
  readings.current(200000);  // 2e9 fits, 2.4e9 with the clamp does not
  readings.active_power(200000);

  EXPECT_EQ(readings.current_text + ' ' + readings.voltage_text + ' ' + readings.line_voltage_text + ' ' +
                readings.power_text + ' ' + readings.va_text + ' ' + readings.var_text,
            "123.4mA 230.0V 459.9V 100.0W 115.0VA 040.0VAR");
  EXPECT_EQ(readings.line_voltage_raw, 99999);
  EXPECT_EQ(readings.va_raw, 1150);
  EXPECT_EQ(readings.var_raw, 1000);
}

}  // namespace
}  // namespace halden
