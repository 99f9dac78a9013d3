#include "readings/harmonics.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "readings/wave_texts.h"

namespace halden {
namespace {

struct Order {
  std::size_t k;
  std::int16_t cos, sin;
  const char* percent;
  const char* angle;
};

HarmonicValues values_of(std::initializer_list<Order> orders) {
  HarmonicComponents components;
  for (const Order& order : orders) {
    components.cos[order.k] = order.cos;
    components.sin[order.k] = order.sin;
  }
  return harmonic_values(components);
}

// atan(4/3) is 53.13 degrees. The largest magnitude is 10000, so that 100 of it are 1 %.
TEST(Harmonics, ASpectrumWorkedOutByHand) {
  const std::initializer_list<Order> orders = {
      {0, 20000, 20000, "0.0", "0.0"},  // not counted, also not as the largest
      {1, 6000, 8000, "100.0", "52.0"}, {3, 300, -300, "4.2", "43.9"},  // 424.26; -45 + 90
      {5, -240, 320, "4.0", "-144.2"},                                  // -53.13 - 90
      {7, -150, -200, "2.5", "-38.0"},                                  // 53.13 - 90
      {9, 0, 150, "1.5", "180.0"},                                      // without the delay of the converter
      {11, 0, -120, "1.2", "0.0"},                                      //
      {13, 60, 80, "1.0", "52.0"},                                      // 1 % keeps its angle,
      {15, 57, 76, "1.0", "0.0"},                                       // 0.95 % has none
      {17, 6, 8, "0.1", "0.0"},                                         // 0.1 % is shown,
      {19, 9, 0, "0.0", "0.0"},                                         // 0.09 % is not
      {21, -500, 0, "5.0", "-1.1"},                                     //
      {98, 200, 0, "2.0", "-1.1"},                                      //
      {99, 0, 0, "0.0", "0.0"},                                         // and not 180
  };
  const HarmonicValues values = values_of(orders);
  EXPECT_EQ(values.reference, 1U);
  for (const Order& order : orders) {
    EXPECT_EQ(format_float(values.percent[order.k], "##0.0"), order.percent) << order.k;
    EXPECT_EQ(format_float(values.angle[order.k], "##0.0"), order.angle) << order.k;
  }
  EXPECT_NEAR(values.angle[1], 52.030147, 1e-5) << "53.130102 x 3.141593 / 3.14159 - 1.1";
  EXPECT_EQ(values.magnitude[0], 0.0F);
  EXPECT_EQ(values.magnitude[5], 400.0F);
}

TEST(Harmonics, TheLowestOfTheLargestOrdersIsTheReference) {
  const HarmonicValues tied = values_of({{2, 3, 4, "", ""}, {7, -5, 0, "", ""}, {99, 0, -5, "", ""}});
  EXPECT_EQ(tied.reference, 2U);
  for (const std::size_t k : {2U, 7U, 99U}) EXPECT_EQ(tied.percent[k], 100.0F) << k;
  const HarmonicValues widest = values_of({{1, 32767, 32767, "", ""}, {99, -32768, -32768, "", ""}});
  EXPECT_EQ(widest.reference, 99U);
  EXPECT_EQ(format_float(widest.magnitude[99], "####0.0"), "46341.0");  // 32768 x 1.414214 = 46340.95
  EXPECT_EQ(format_float(widest.angle[99], "##0.0"), "-46.1");          // 45 - 90 - 1.1
  const HarmonicValues nothing = values_of({{0, 9, 9, "", ""}});
  EXPECT_EQ(nothing.reference, 0U);
  for (const auto& all : {nothing.percent, nothing.angle})
    EXPECT_TRUE(std::all_of(all.begin(), all.end(), [](float value) { return value == 0.0F; }));
}

TEST(WaveTexts, TheCrestFactorHonoursPrefixes) {
  const struct {
    const char *peak, *rms, *text;
  } rows[] = {
      {"325.4V", "230.1V", "1.41"},     {"1.270A", "900.0mA", "1.41"}, {"900.0mA", "1.270A", "0.71"},
      {"12.50KA", "2.000A", "6250.00"}, {"1.000KV", "500.0V", "2.00"}, {"2.000TV", "1.000GV", "2000.00"},
      {"000.0V", "230.0V", "0.00"},     {"325.4V", "000.0V", "OL"},    {"325.4V", "  OL ", "OL"},
      {"  OL ", "230.0V", "OL"},        {"  OL ", "  OL ", "OL"},      {"325.4V", "", "OL"}};
  for (const auto& row : rows)
    EXPECT_EQ(crest_factor_text(row.peak, row.rms), row.text) << row.peak << " / " << row.rms;
}

// 12700 x 0.1 mA has five digits, so the last one is dropped and the unit becomes A.
TEST(WaveTexts, FollowChannelAndRange) {
  Scaling scaling;
  scaling.ct_ratio = scaling.pt_ratio = 1;
  WaveTexts texts;
  update_wave_texts(scaling, {1, 9000, 12700, 12699, 1, 32, 8990}, texts);
  EXPECT_EQ(texts.rms + texts.peak_plus + texts.peak_minus, "900.0mA1.270A-1.269A");
  EXPECT_EQ(texts.crest_factor + " " + texts.thd + texts.fundamental + texts.hz, "1.41 3.2%899.0mA50Hz");
  scaling.pt_ratio = 100;
  update_wave_texts(scaling, {4, 2301, -1, 3254, 2, 1005, 2300}, texts);
  EXPECT_EQ(texts.rms + texts.peak_plus + texts.peak_minus, "23.01KV  OL -32.54KV");
  EXPECT_EQ(texts.crest_factor + " " + texts.thd + texts.fundamental + texts.hz, "OL 100.5%23.00KV60Hz");
  for (const int code : {0, 3, -1}) {
    update_wave_texts(scaling, {9, 5, 7, -1, code, 0, 0}, texts);  // an unknown channel counts as a current
    EXPECT_EQ(texts.rms + texts.peak_minus + texts.thd + texts.hz, "000.5mA-  OL 0.0%AUTO");
  }
  const std::pair<int, const char*> inputs[] = {{0, "V1"}, {1, "I1"}, {2, "V2"}, {3, "I2"},
                                                {4, "V3"}, {5, "I3"}, {6, ""},   {-1, ""}};
  for (const auto& [channel, name] : inputs) EXPECT_EQ(input_name(channel), name);
  for (const auto& [text, unit] : {std::pair("-325.4V", "V"), {"1.270KA", "KA"}, {"  OL ", ""}, {"", ""}})
    EXPECT_EQ(unit_of(text), unit) << text;
}

}  // namespace
}  // namespace halden
