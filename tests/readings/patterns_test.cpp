#include "readings/patterns.h"

#include <gtest/gtest.h>

#include <limits>
#include <span>

namespace halden {
namespace {

struct Case {
  double value;
  const char* pattern;
  const char* text;
};

void expect_texts(std::span<const Case> cases) {
  for (const Case& c : cases)
    EXPECT_EQ(format_pattern(c.value, c.pattern), c.text) << c.value << ' ' << c.pattern;
}

TEST(Patterns, DigitsBeforeAndBehindThePoint) {
  const Case cases[] = {
      {5, "0000", "0005"},       {-5, "0000", "-0005"},
      {12345, "0000", "12345"},  {0, "0000", "0000"},
      {0, "###0", "0"},          {-7, "###0", "-7"},
      {12345, "###0", "12345"},  {7, "#00", "07"},
      {65535, "00000", "65535"}, {1234.5, "###0.00", "1234.50"},
      {0, "###0.00", "0.00"},    {1.41421356, "###0.00", "1.41"},
      {0.04, "##0.0", "0.0"},    {9.96, "#0.0", "10.0"},
      {30.5, "000.0", "030.5"},  {-10, "000.0", "-010.0"},
      {-0.5, "000.0", "-000.5"}, {0.05, "0.00", "0.05"},
      {-0.5, "0.00H", "-0.50H"}, {50, "#0.0Hz", "50.0Hz"},
      {5e-324, "0.00", "0.00"},
  };
  expect_texts(cases);
}

// The doubles of 0.35, 2.675 and 1.005 lie below their texts; what counts is the text.
TEST(Patterns, RoundHalfAwayFromZeroOnTheDecimalText) {
  const Case cases[] = {
      {0.25, "##0.0", "0.3"},     {0.35, "##0.0", "0.4"},      {-0.25, "##0.0", "-0.3"},
      {0.349999, "##0.0", "0.3"}, {2.675, "0.00", "2.68"},     {1.005, "###0.00", "1.01"},
      {0.005, "0.00", "0.01"},    {0.0049999, "0.00", "0.00"}, {2.5, "#0", "3"},
      {-2.5, "#0", "-3"},         {0.5, "0000", "0001"},       {0.49, "#0", "0"},
      {9999.5, "0000", "10000"},  {9999.4999, "0000", "9999"}, {99.95, "##0.0", "100.0"},
      {0.095, "0.00", "0.10"},
  };
  expect_texts(cases);
}

// 0.29 x 100 is 28.999999999999996 in doubles, and 1.1 x 100 is 110.00000000000001: the point moves in the
// decimals.
TEST(Patterns, PercentMovesThePoint) {
  const Case cases[] = {
      {0.01235, "#0.00%", "1.24%"}, {0.29, "#0.00%", "29.00%"},     {1.1, "#0.00%", "110.00%"},
      {0.01005, "#0.00%", "1.01%"}, {0.00005, "#0.00%", "0.01%"},   {0, "#0.00%", "0.00%"},
      {-0.5, "#0.00%", "-50.00%"},  {0.099999, "#0.00%", "10.00%"},
  };
  expect_texts(cases);
}

TEST(Patterns, AResultOfZeroHasNoSign) {
  const Case cases[] = {
      {-0.0, "0000", "0000"},        {-0.4, "0000", "0000"},  {-0.004, "0.00", "0.00"},
      {-0.00004, "#0.00%", "0.00%"}, {-0.5, "0000", "-0001"},
  };
  expect_texts(cases);
}

TEST(Patterns, AnyDoubleGivesAText) {
  const Case cases[] = {
      {1e21, "#0", "1000000000000000000000"},
      {123456789012345680.0, "0.00", "123456789012345680.00"},
      {std::numeric_limits<double>::quiet_NaN(), "##0.0", "0.0"},
      {-std::numeric_limits<double>::infinity(), "0000", "0000"},
  };
  expect_texts(cases);
  const std::string largest = format_pattern(std::numeric_limits<double>::max(), "##0.0");
  EXPECT_EQ(largest.size(), 311U);  // 309 digits, point, one place
}

}  // namespace
}  // namespace halden
