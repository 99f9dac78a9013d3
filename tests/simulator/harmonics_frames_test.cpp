#include "simulator/harmonics_frames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace halden::meter_side {
namespace {

constexpr double pi = std::numbers::pi;

struct Component {
  int cos = 0;
  int sin = 0;
  double square() const { return 1.0 * cos * cos + 1.0 * sin * sin; }
  double angle_deg() const { return std::atan2(-sin, cos) * 180.0 / pi; }
};

int number_at(const std::string& text, std::size_t begin, std::size_t width) {
  return std::stoi(text.substr(begin, width));
}

// Each order takes 19 characters from position 40 on.
std::vector<Component> components(const std::string& frame) {
  std::vector<Component> orders;
  for (std::size_t begin = 40; begin < 40 + 1900; begin += 19)
    orders.push_back({number_at(frame, begin + 4, 7), number_at(frame, begin + 12, 7)});
  return orders;
}

std::vector<int> samples(const std::string& frame) {
  std::vector<int> values;
  for (std::size_t i = 2; i < 2050; i += 2) {
    const int high = static_cast<unsigned char>(frame[i]);
    const int low = static_cast<unsigned char>(frame[i + 1]);
    values.push_back(high * 256 + low - (high >= 128 ? 65536 : 0));
  }
  return values;
}

double rms(const std::vector<int>& values) {
  double sum = 0.0;
  for (const int value : values) sum += 1.0 * value * value;
  return std::sqrt(sum / static_cast<double>(values.size()));
}

// The currents lag 15 degrees; phase 1 carries the biggest signals that the 16 bits must hold.
Load steady_load() {
  Load load;
  load.fix(1, {400.0, 0.0, 29.9, 15.0});
  load.fix(2, {230.0, -120.0, 8.0, 15.0});
  load.fix(3, {230.0, 120.0, 8.0, 15.0});
  return load;
}

MeterSettings on_channel(int channel) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  settings.channel = channel;
  return settings;
}

// A phase that is not in use. Leading zeros, so that no component looks like the tag of an order.
TEST(Frames, OfNothingByteForByte) {
  MeterSettings settings = on_channel(4);
  settings.wiring = Wiring::w1p2w;
  settings.frequency_code = 2;
  std::string orders;
  for (char tens = '0'; tens <= '9'; ++tens)
    for (char ones = '0'; ones <= '9'; ++ones) orders += std::string{' ', tens, ones} + " 0000000 0000000";
  EXPECT_EQ(harmonics_frame(steady_load(), settings, 0.0),
            "BO=    4R=     0P=     0N=     0H=     2" + orders + "T=     0V=     0E");
  EXPECT_EQ(waveform_frame(steady_load(), settings, 0.0),
            "B " + std::string(2048, '\0') + " O=    4 R=    0 P=    0 N=    0 H=    2 T=    0 V=    0 E");
}

// On every input: the spectrum's RMS is the samples' RMS, a Fourier sum over the samples gives the components
// back, and peaks, THD and angles are those of the same signal.
TEST(Frames, SpectrumAndWaveformAreOneSignal) {
  const int rms_of[] = {4000, 29900, 2300, 8000, 2300, 8000};
  const double behind_v1_deg[] = {0.0, 15.0, 120.0, 135.0, -120.0, -105.0};
  double v1_deg = 0.0;
  for (int channel = 0; channel < 6; ++channel) {
    SCOPED_TRACE(channel);
    const std::string spectrum = harmonics_frame(steady_load(), on_channel(channel), 100.0);
    const std::string wave_frame = waveform_frame(steady_load(), on_channel(channel), 100.0);
    ASSERT_EQ(spectrum.size(), 1957U);
    ASSERT_EQ(wave_frame.size(), 2108U);
    const auto orders = components(spectrum);
    const auto wave = samples(wave_frame);
    if (channel == 0) v1_deg = orders[1].angle_deg();
    EXPECT_NEAR(std::remainder(v1_deg - orders[1].angle_deg() - behind_v1_deg[channel], 360.0), 0.0, 0.1);
    double square_sum = 0.0;
    for (const Component& order : orders) square_sum += order.square();
    EXPECT_NEAR(rms(wave), std::sqrt(square_sum / 2.0), 0.5);

    for (const std::size_t k : {1U, 3U, 5U, 49U, 60U}) {
      double cos = 0.0, sin = 0.0;
      for (std::size_t i = 0; i < wave.size(); ++i) {
        const double angle = 2.0 * pi * 4.0 * static_cast<double>(k * i) / 1024.0;
        cos += wave[i] * std::cos(angle) / 512.0;
        sin += wave[i] * std::sin(angle) / 512.0;
      }
      EXPECT_NEAR(cos, orders[k].cos, 0.2) << "order " << k;
      EXPECT_NEAR(sin, orders[k].sin, 0.2) << "order " << k;
    }

    EXPECT_NEAR(number_at(spectrum, 10, 6), rms_of[channel], 2);
    const double counts_per_raw = rms(wave) / number_at(spectrum, 10, 6);
    const auto [low, high] = std::minmax_element(wave.begin(), wave.end());
    EXPECT_NEAR(number_at(spectrum, 18, 6) * counts_per_raw / *high, 1.0, 0.002);
    EXPECT_NEAR(number_at(spectrum, 26, 6) * counts_per_raw / -*low, 1.0, 0.002);
    const double first = orders[1].square();
    EXPECT_NEAR(number_at(spectrum, 1942, 6), 1000.0 * std::sqrt((square_sum - first) / first), 0.51);
    EXPECT_NEAR(number_at(spectrum, 1950, 6) * counts_per_raw / std::sqrt(first / 2.0), 1.0, 0.002);
    for (const auto& [in_spectrum, in_wave] :
         {std::pair(10, 2061), {18, 2069}, {26, 2077}, {1942, 2093}, {1950, 2101}})
      EXPECT_EQ(spectrum.substr(in_spectrum + 1, 5), wave_frame.substr(in_wave, 5)) << in_spectrum;
  }
}

TEST(Frames, SayOverRange) {
  MeterSettings settings = on_channel(1);
  settings.current_range = 0;
  const std::string over = harmonics_frame(steady_load(), settings, 0.0);
  EXPECT_EQ(over.substr(8, 24), "R=    -1P=    -1N=    -1");
  EXPECT_EQ(over.size(), 1957U);
}

}  // namespace
}  // namespace halden::meter_side
