#include "logger/harmonics_conversion.h"

#include <gtest/gtest.h>

#include <map>

namespace halden {
namespace {

using Words = std::map<int, std::int16_t>;  // all others are 0

RecordedSettings recorded(std::int16_t channel, std::int16_t ct, std::int16_t pt) {
  return {
      {ct, pt, 1.0F, 0, Wiring::w3p4w, 15, ProductLimit::none}, 300, 2, channel, "2024-02-28", "23:55:00"};
}

// The line that the last word completes; "early" when another one does.
std::string line_of(HarmonicsConversion& conversion, const Words& words) {
  std::string line;
  for (int position = 0; position < 64; ++position) {
    const auto word = words.find(position);
    const auto record = conversion.take(word == words.end() ? std::int16_t{0} : word->second);
    if (record) line = position == 63 ? record->text : "early";
  }
  return line;
}

// Without date, time and orders.
std::string summary_of(const RecordedSettings& settings, const Words& words) {
  HarmonicsConversion conversion(settings);
  return line_of(conversion, words).substr(22, 77);
}

TEST(HarmonicsConversion, TwoRecordsOfAVoltageWorkedOutByHand) {
  HarmonicsConversion conversion(recorded(2, 1, 100));
  const std::string header = conversion.header();
  EXPECT_TRUE(
      header.starts_with("HARMO,Hz=60,MD=15,SEC=300,CT=1,VT=100,INPUT=V2,SYS=3P4W,NO.=51 ,OPTION=%\r\n"
                         "DATE, TIME, RMS, PEAK+, PEAK-, THD-F, VI_1, HZ, RANGE,0,1,2,3,"));
  EXPECT_TRUE(header.ends_with(",49,50\r\n"));

  // 230.0 V and THD-F 100 %: the fundamental is 2300 / 1.4142 = 1626. 5.25 % is rounded away from zero.
  std::string zeros;
  for (int order = 4; order <= 49; ++order) zeros += "       0.0,";
  EXPECT_EQ(
      line_of(
          conversion,
          {{0, 2300}, {1, 3254}, {2, 3253}, {4, 10000}, {6, 525}, {53, 7}, {54, 1000}, {55, 599}, {58, 50}}),
      "2024-02-28,  23:55:00,   23.00KV,   32.54KV,  -32.53KV,    100.0%,   16.26KV,    59.9Hz,   0 to 50,"
      "       0.0,     100.0,       0.0,       5.3," +
          zeros + "       0.1,");
  EXPECT_EQ(
      line_of(conversion, {{0, -1}, {1, 32767}, {2, -1}, {55, 500}, {58, 51}}).substr(0, 99),
      "2024-02-29,  00:00:00,       OL ,   327.6KV,    -  OL ,      0.0%,       OL ,    50.0Hz, 50 to 100,");
}

TEST(HarmonicsConversion, CurrentsHaveTheirClampAndNoLimit) {
  RecordedSettings settings = recorded(5, 1, 1);
  // Only the meter's own -1 is over range: -2 / 1.4142 rounds to -1.
  EXPECT_EQ(summary_of(settings, {{0, -2}, {1, 12}, {54, 1000}, {58, 101}}),
            "  -000.2mA,   001.2mA,  -000.0mA,    100.0%,  -000.1mA,     0.0Hz,   ?      ,");

  // 32767 x 32767 x 3 is 3,221,028,867, beyond 32 bits, in units of 0.1 A.
  settings = recorded(5, 32767, 1);
  settings.scaling.current_range = 3;
  settings.scaling.current_scale = 3.0F;
  EXPECT_EQ(summary_of(settings, {{0, 32767}, {58, -1}}).substr(0, 55),
            "   322.1MA,    000.0A,   -000.0A,      0.0%,   322.1MA,");
  settings.scaling.current_scale = 1.2F;
  settings.scaling.ct_ratio = 1;
  settings.scaling.wiring_system = Wiring{9};
  EXPECT_EQ(summary_of(settings, {{0, 1000}}).substr(0, 11), "    120.0A,");
  EXPECT_NE(HarmonicsConversion(settings).header().find(",INPUT=I3,SYS=????,NO.=51 ,"), std::string::npos);
}

}  // namespace
}  // namespace halden
