#include "readings/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

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

}  // namespace
}  // namespace halden
