#include "readings/patterns.h"

#include <gtest/gtest.h>

#include <limits>

namespace halden {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

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
      {-5, "0000", "-0005"},          {12345, "0000", "12345"},      {65, "##000", "065"},
      {1234.5, "###0.00", "1234.50"}, {0, "###0.00", "0.00"},        {9.96, "#0.0", "10.0"},
      {30.5, "000.0", "030.5"},       {-10, "000.0", "-010.0"},      {0.05, "0.00", "0.05"},
      {-0.5, "0.00H", "-0.50H"},      {50, "#0.0Hz", "50.0Hz"},      {0.25, "##0.0", "0.3"},
      {-0.25, "##0.0", "-0.3"},       {0.35, "##0.0", "0.4"},        {0.349999, "##0.0", "0.3"},
      {2.675, "0.00", "2.68"},        {1.005, "###0.00", "1.01"},    {0.005, "0.00", "0.01"},
      {0.0049999, "0.00", "0.00"},    {0.095, "0.00", "0.10"},       {0.5, "0000", "0001"},
      {-2.5, "###0", "-3"},           {9999.5, "0000", "10000"},     {9999.49, "0000", "9999"},
      {0.29, "#0.00%", "29.00%"},     {1.1, "#0.00%", "110.00%"},    {0.01005, "#0.00%", "1.01%"},
      {0.00005, "#0.00%", "0.01%"},   {0.09999, "#0.00%", "10.00%"}, {-0.0, "0000", "0000"},
      {-0.4, "0000", "0000"},         {-0.5, "0000", "-0001"},       {-4e-5, "#0.00%", "0.00%"},
      {5e-324, "0.00", "0.00"},       {nan, "##0.0", "0.0"},         {-infinity, "0000", "0000"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(format_pattern(c.value, c.pattern), c.text) << c.value << ' ' << c.pattern;
  EXPECT_EQ(format_pattern(1e21, "#0"), "1000000000000000000000");
  EXPECT_EQ(format_pattern(123456789012345680.0, "0.00"), "123456789012345680.00");
  const std::string largest = format_pattern(std::numeric_limits<double>::max(), "##0.0");
  EXPECT_EQ(largest.size(), 311U);  // 309 digits, point, one place
}

}  // namespace
}  // namespace halden
