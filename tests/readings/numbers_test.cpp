#include "readings/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>

#include "readings/patterns.h"
#include "readings/readings.h"

namespace halden {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, TakesWhatStandsInFrontAndNothingElse) {
  const std::pair<std::string_view, double> cases[] = {
      {"2.0 SEC", 2}, {"230.0V", 230}, {"000123", 123},    {"\t7", 7},  {"  12 34", 12},
      {"- 45", -45},  {"+ 3", 3},      {" -  0012 ", -12}, {".5", 0.5}, {"-.25", -0.25},
      {"5.x", 5},     {"1.2.3", 1.2},  {"1,5", 1},         {"1e5", 1}};
  for (const auto& [text, number] : cases) EXPECT_EQ(leading_number(text), number) << text;
  for (const char* text : {"", " ", "-", ".", "-.", "abc", "  OL ", "------", "--5", "+-5", "inf", "nan",
                           "-infinity", "0x10", "$5", "\xff\xfe 12", "-0.0"}) {
    EXPECT_EQ(leading_number(text), 0.0) << text;
    EXPECT_FALSE(std::signbit(leading_number(text))) << text;
  }
  EXPECT_EQ(leading_number(std::string("12\0 34", 6)), 12.0);
}

TEST(LeadingNumber, StaysFinite) {
  EXPECT_EQ(leading_number(std::string(400, '9')), std::numeric_limits<double>::max());
  EXPECT_EQ(leading_number("-" + std::string(400, '9')), std::numeric_limits<double>::lowest());
  EXPECT_EQ(leading_number("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(leading_number(std::string(400, '0') + "7"), 7.0);
}

TEST(FieldNumber, TakesTheWholeFieldOrNothing) {
  const std::pair<std::string_view, double> numbers[] = {{"  2301", 2301}, {"2301  ", 2301}, {"-00045", -45},
                                                         {"+    7", 7},    {"- 12  ", -12},  {"0", 0}};
  for (const auto& [field, number] : numbers) EXPECT_EQ(field_number(field), number) << field;
  for (const char* field :
       {"", "      ", "-", "12 345", "1.5", "--5", "5-", "23O1", " x2301", "1e3", "nan", "12\xb2"})
    EXPECT_FALSE(field_number(field)) << field;
  EXPECT_FALSE(field_number(std::string_view("12\0", 3)));
}

TEST(Rounding, HalvesGoToTheEvenNumber) {
  const std::pair<double, double> cases[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-1.5, -2},
                                             {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {-0.51, -1}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(round_half_even(value), rounded) << value;
  // A vanishing magnitude less a half must not come near -1, the over-range mark.
  EXPECT_EQ(round_half_even(-0.5), 0.0);
  EXPECT_FALSE(std::signbit(round_half_even(-0.5)));
}

TEST(IntegerQuotient, RoundsBothSidesThenCutsTowardZero) {
  const struct {
    double x, y;
    std::int64_t quotient;
  } cases[] = {
      {19999, 10, 1999},
      {-12345, 10, -1234},
      {9999.6, 10, 1000},  // 10000 \ 10
      {14.5, 5, 2},        // 14 \ 5: the half goes down to the even 14
      {15, 2.5, 7},        // 15 \ 2
      {15, 3.5, 3},        // 15 \ 4
      {1e300, 1, 9'000'000'000'000'000'000},
      {-1e300, 1, -9'000'000'000'000'000'000},
      {5, 0.4, 0},
      {nan, 3, 0},
  };
  for (const auto& c : cases) EXPECT_EQ(integer_quotient(c.x, c.y), c.quotient) << c.x << " \\ " << c.y;
}

TEST(ToInteger, RefusesWhatDoesNotFit) {
  EXPECT_EQ(to_int16(32767.4), 32767);
  EXPECT_EQ(to_int16(-32768.5), -32768);  // half to even
  EXPECT_EQ(to_int32(2147483647.4), 2147483647);
  EXPECT_EQ(to_int32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  for (const double value : {32767.5, -32769.0, 1e9, nan, infinity, -infinity})
    EXPECT_FALSE(to_int16(value)) << value;
  for (const double value : {2147483647.5, -2147483649.0, 1e300, nan, infinity, -infinity})
    EXPECT_FALSE(to_int32(value)) << value;
}

// In this order: digits before and behind the point, halves, percentages, signs of zero, extremes. Halves go
// away from zero on the decimal text: the doubles of 0.35, 2.675 and 1.005 lie below theirs. 0.29 x 100 is
// 28.999999999999996 and 1.1 x 100 is 110.00000000000001 in doubles: for a percentage the point moves in the
// decimals.
TEST(Patterns, EveryDoubleGivesItsText) {
  const struct {
    double value;
    const char* pattern;
    const char* text;
  } cases[] = {
      {-5, "0000", "-0005"},         {12345, "0000", "12345"},
      {65, "##000", "065"},          {1234.5, "###0.00", "1234.50"},
      {0, "###0.00", "0.00"},        {9.96, "#0.0", "10.0"},
      {30.5, "000.0", "030.5"},      {-10, "000.0", "-010.0"},
      {0.05, "0.00", "0.05"},        {-0.5, "0.00H", "-0.50H"},
      {50, "#0.0Hz", "50.0Hz"},      {0.25, "##0.0", "0.3"},
      {-0.25, "##0.0", "-0.3"},      {0.35, "##0.0", "0.4"},
      {0.349999, "##0.0", "0.3"},    {2.675, "0.00", "2.68"},
      {1.005, "###0.00", "1.01"},    {0.005, "0.00", "0.01"},
      {0.0049999, "0.00", "0.00"},   {0.095, "0.00", "0.10"},
      {0.5, "0000", "0001"},         {-2.5, "###0", "-3"},
      {9999.5, "0000", "10000"},     {9999.49, "0000", "9999"},
      {0.29, "#0.00%", "29.00%"},    {1.1, "#0.00%", "110.00%"},
      {0.01005, "#0.00%", "1.01%"},  {0.00005, "#0.00%", "0.01%"},
      {0.09999, "#0.00%", "10.00%"}, {-0.0, "0000", "0000"},
      {-0.4, "0000", "0000"},        {-0.5, "0000", "-0001"},
      {-4e-5, "#0.00%", "0.00%"},    {5e-324, "0.00", "0.00"},
      {nan, "##0.0", "0.0"},         {-infinity, "0000", "0000"},
      {0.5, "#.00", ".50"},          {20000000000000.25, "##0.0", "20000000000000.3"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(format_pattern(c.value, c.pattern), c.text) << c.value << ' ' << c.pattern;
  EXPECT_EQ(format_pattern(1e21, "#0"), "1000000000000000000000");
  EXPECT_EQ(format_pattern(123456789012345680.0, "0.00"), "123456789012345680.00");
  const std::string largest = format_pattern(std::numeric_limits<double>::max(), "##0.0");
  EXPECT_EQ(largest.size(), 311U);  // 309 digits, point, one place
}

// Texts on the screen and in files keep the decimal point under a desktop that writes commas.
class CommaNumbers : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

// The C locale is German where the system has it, that of the streams everywhere.
TEST(Locale, ACommaChangesNothing) {
  const std::string c_before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "German_Germany.1252"})
    std::setlocale(LC_ALL, name);
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
  const Scaling scaling = {1, 1};
  Readings readings(scaling);
  readings.voltage(12345);
  EXPECT_EQ(readings.voltage_text, "1.234KV");
  readings.power_factor(500, 1000);
  EXPECT_EQ(readings.pf_text, "0.50");
  readings.phase_angle(2300, 50, 305, 0);
  EXPECT_EQ(readings.angle_text, "030.5");
  EXPECT_EQ(leading_number("12.75"), 12.75);
  EXPECT_EQ(leading_number("12,75"), 12.0);
  std::locale::global(before);
  std::setlocale(LC_ALL, c_before.c_str());
}

}  // namespace
}  // namespace halden
