// Texts on the screen and in files keep the decimal point under a desktop that writes commas.
#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "readings/numbers.h"
#include "readings/readings.h"

namespace halden {
namespace {

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
