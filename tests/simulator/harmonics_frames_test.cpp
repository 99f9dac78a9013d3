#include "simulator/replies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <numbers>
#include <numeric>
#include <vector>

namespace halden::simulator {
namespace {

constexpr double pi = std::numbers::pi;

int number_at(const std::string& text, std::size_t begin, std::size_t width) {
  return std::stoi(text.substr(begin, width));
}

// Each order takes 19 characters from position 40 on: C cos(k phi) + S sin(k phi) is C - iS.
std::vector<std::complex<double>> components(const std::string& frame) {
  std::vector<std::complex<double>> orders;
  for (std::size_t begin = 40; begin < 40 + 1900; begin += 19)
    orders.emplace_back(number_at(frame, begin + 4, 7), -number_at(frame, begin + 12, 7));
  return orders;
}

std::vector<double> samples(const std::string& frame) {
  std::vector<double> values;
  for (std::size_t i = 2; i < 2050; i += 2) {
    const int high = static_cast<unsigned char>(frame[i]);
    const int low = static_cast<unsigned char>(frame[i + 1]);
    values.push_back(high * 256 + low - (high >= 128 ? 65536 : 0));
  }
  return values;
}

// The currents lag 15 degrees; phase 1 carries the biggest signals that the 16 bits must hold.
Load steady_load() {
  Load load;
  load.fix_raw(1, {4000, 29900, 11552, 0, 150});
  load.fix_raw(2, {2300, 8000, 1777, 1200, 1350});
  load.fix_raw(3, {2300, 8000, 1777, -1200, -1050});
  return load;
}

// A phase that is not in use. Leading zeros, so that no component looks like the tag of an order.
TEST(Frames, OfNothingByteForByte) {
  MeterSettings settings;
  settings.channel = 4;
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
  MeterSettings settings;
  for (int channel = 0; channel < 6; ++channel) {
    SCOPED_TRACE(channel);
    settings.channel = channel;
    const std::string spectrum = harmonics_frame(steady_load(), settings, 100.0);
    const std::string wave_frame = waveform_frame(steady_load(), settings, 100.0);
    ASSERT_EQ(spectrum.size(), 1957U);
    ASSERT_EQ(wave_frame.size(), 2108U);
    const auto orders = components(spectrum);
    const auto wave = samples(wave_frame);
    const double angle_deg = std::arg(orders[1]) * 180.0 / pi;
    if (channel == 0) v1_deg = angle_deg;
    EXPECT_NEAR(std::remainder(v1_deg - angle_deg - behind_v1_deg[channel], 360.0), 0.0, 0.1);
    double square_sum = 0.0;
    for (const auto& order : orders) square_sum += std::norm(order);
    const double rms = std::sqrt(std::inner_product(wave.begin(), wave.end(), wave.begin(), 0.0) / 1024.0);
    EXPECT_NEAR(rms, std::sqrt(square_sum / 2.0), 0.5);

    for (const std::size_t k : {1U, 3U, 5U, 49U, 60U}) {
      std::complex<double> sum;
      for (std::size_t i = 0; i < wave.size(); ++i)
        sum += wave[i] / 512.0 * std::polar(1.0, -2.0 * pi * 4.0 * static_cast<double>(k * i) / 1024.0);
      EXPECT_LT(std::abs(sum - orders[k]), 0.2) << "order " << k;
    }

    EXPECT_NEAR(number_at(spectrum, 10, 6), rms_of[channel], 2);
    const double counts_per_raw = rms / number_at(spectrum, 10, 6);
    const auto [low, high] = std::minmax_element(wave.begin(), wave.end());
    EXPECT_NEAR(number_at(spectrum, 18, 6) * counts_per_raw / *high, 1.0, 0.002);
    EXPECT_NEAR(number_at(spectrum, 26, 6) * counts_per_raw / -*low, 1.0, 0.002);
    const double first = std::norm(orders[1]);
    EXPECT_NEAR(number_at(spectrum, 1942, 6), 1000.0 * std::sqrt((square_sum - first) / first), 0.51);
    EXPECT_NEAR(number_at(spectrum, 1950, 6) * counts_per_raw / std::sqrt(first / 2.0), 1.0, 0.002);
    for (const auto& [in_spectrum, in_wave] :
         {std::pair(10, 2061), {18, 2069}, {26, 2077}, {1942, 2093}, {1950, 2101}})
      EXPECT_EQ(spectrum.substr(in_spectrum + 1, 5), wave_frame.substr(in_wave, 5)) << in_spectrum;
  }
  settings.channel = 1;
  settings.current_range = 0;  // 3 A at the most
  EXPECT_EQ(harmonics_frame(Load(), settings, 0.0).substr(8, 24), "R=    -1P=    -1N=    -1");
}

}  // namespace
}  // namespace halden::simulator
