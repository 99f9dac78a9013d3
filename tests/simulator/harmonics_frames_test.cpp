#include "simulator/harmonics_frames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "simulator/spectrum.h"

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

// 230 V and 8 A lagging 15 degrees in every phase.
Load steady_load() {
  Load load;
  for (const auto& [phase, angle] : {std::pair(1, 0.0), std::pair(2, -120.0), std::pair(3, 120.0)})
    load.fix(phase, {230.0, angle, 8.0, 15.0});
  return load;
}

MeterSettings on_channel(int channel) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  settings.channel = channel;
  return settings;
}

TEST(HarmonicsFrame, HasItsTagsInTheirPlaces) {
  const std::string frame = harmonics_frame(steady_load(), on_channel(3), 100.0);
  ASSERT_EQ(frame.size(), 1957U);
  EXPECT_EQ(frame.substr(0, 10), "BO=    3R=");
  EXPECT_NEAR(number_at(frame, 10, 6), 8000, 2);
  EXPECT_EQ(frame.substr(16, 2), "P=");
  EXPECT_EQ(frame.substr(24, 2), "N=");
  EXPECT_EQ(frame.substr(32, 8), "H=     1");
  for (int k = 0; k < 100; ++k) {
    const std::string tag = {' ', static_cast<char>('0' + k / 10), static_cast<char>('0' + k % 10), ' '};
    EXPECT_EQ(frame.substr(40 + 19 * static_cast<std::size_t>(k), 4), tag);
  }
  EXPECT_EQ(frame.substr(1940, 2), "T=");
  EXPECT_EQ(frame.substr(1948, 2), "V=");
  EXPECT_EQ(frame.find('E'), 1956U);
}

// A reader searches for a blank and the two digits of an order: no number may look like one.
TEST(HarmonicsFrame, NoNumberLooksLikeTheTagOfAnOrder) {
  const std::string frame = harmonics_frame(steady_load(), on_channel(1), 100.0);
  for (std::size_t i = 40, order = 0; i + 2 < 1940; ++i) {
    if (frame[i] != ' ' || frame[i + 1] == '-' || frame.substr(i, 4) == " 000") continue;
    EXPECT_EQ(i, 40 + 19 * order) << frame.substr(i, 8);
    ++order;
  }
}

TEST(WaveformFrame, HasItsTagsInTheirPlaces) {
  const std::string frame = waveform_frame(steady_load(), on_channel(0), 100.0);
  ASSERT_EQ(frame.size(), 2108U);
  EXPECT_EQ(frame[0], 'B');
  const std::string tags = "ORPNHTV";
  for (std::size_t i = 0; i < tags.size(); ++i)
    EXPECT_EQ(frame.substr(2050 + 8 * i, 3), std::string(" ") + tags[i] + "=");
  EXPECT_EQ(number_at(frame, 2050 + 8 + 3, 5), 2300);
  EXPECT_EQ(frame.substr(2050 + 8 * 4 + 3, 5), "    1");
  EXPECT_EQ(frame.substr(2106), " E");
}

// On every input: the spectrum's RMS is the samples' RMS, a Fourier sum over the samples gives the components
// back, and peaks and THD are those of the same signal.
TEST(Frames, SpectrumAndWaveformAreOneSignal) {
  for (int channel = 0; channel < 6; ++channel) {
    const std::string spectrum = harmonics_frame(steady_load(), on_channel(channel), 100.0);
    const auto orders = components(spectrum);
    const auto wave = samples(waveform_frame(steady_load(), on_channel(channel), 100.0));
    double square_sum = 0.0;
    for (const Component& order : orders) square_sum += order.square();
    EXPECT_NEAR(rms(wave), std::sqrt(square_sum / 2.0), 0.5) << channel;

    for (const std::size_t k : {1U, 3U, 5U, 49U, 60U}) {
      double cos = 0.0, sin = 0.0;
      for (std::size_t i = 0; i < wave.size(); ++i) {
        const double angle = 2.0 * pi * 4.0 * static_cast<double>(k * i) / 1024.0;
        cos += wave[i] * std::cos(angle) / 512.0;
        sin += wave[i] * std::sin(angle) / 512.0;
      }
      EXPECT_NEAR(cos, orders[k].cos, 0.2) << channel << " order " << k;
      EXPECT_NEAR(sin, orders[k].sin, 0.2) << channel << " order " << k;
    }

    const double counts_per_raw = rms(wave) / number_at(spectrum, 10, 6);
    const auto [low, high] = std::minmax_element(wave.begin(), wave.end());
    EXPECT_NEAR(number_at(spectrum, 18, 6) * counts_per_raw / *high, 1.0, 0.002) << channel;
    EXPECT_NEAR(number_at(spectrum, 26, 6) * counts_per_raw / -*low, 1.0, 0.002) << channel;
    const double first = orders[1].square();
    EXPECT_NEAR(number_at(spectrum, 1942, 6), 1000.0 * std::sqrt((square_sum - first) / first), 0.51)
        << channel;
    EXPECT_NEAR(number_at(spectrum, 1950, 6) * counts_per_raw / std::sqrt(first / 2.0), 1.0, 0.002)
        << channel;
  }
}

TEST(Frames, FundamentalsStandAsTheLoadSays) {
  const auto angle = [](int channel) {
    return components(harmonics_frame(steady_load(), on_channel(channel), 0.0))[1].angle_deg();
  };
  const auto difference = [&](int a, int b) { return std::remainder(angle(a) - angle(b), 360.0); };
  EXPECT_NEAR(difference(0, 1), 15.0, 0.1);
  EXPECT_NEAR(difference(0, 2), 120.0, 0.1);
  EXPECT_NEAR(difference(0, 4), -120.0, 0.1);
  EXPECT_NEAR(difference(4, 5), 15.0, 0.1);
}

TEST(Frames, SayOverRangeAndNothing) {
  MeterSettings settings = on_channel(1);
  settings.current_range = 0;
  const std::string over = harmonics_frame(steady_load(), settings, 0.0);
  EXPECT_EQ(over.substr(8, 24), "R=    -1P=    -1N=    -1");
  EXPECT_EQ(over.size(), 1957U);

  settings.channel = 2;
  settings.wiring = Wiring::w1p2w;
  const std::string unused = harmonics_frame(steady_load(), settings, 0.0);
  EXPECT_EQ(unused.substr(8, 24), "R=     0P=     0N=     0");
  EXPECT_EQ(rms(samples(waveform_frame(steady_load(), settings, 0.0))), 0.0);
}

// The biggest signals in range must not be clipped to 16 bits: 400 V and 29.9 A in range 1.
TEST(Frames, LargeSignalsFitTheConverter) {
  Load load;
  load.fix(1, {400.0, 0.0, 29.9, 0.0});
  for (const int channel : {0, 1})
    for (const int sample : samples(waveform_frame(load, on_channel(channel), 0.0)))
      ASSERT_LT(std::abs(sample), 32767);
}

}  // namespace
}  // namespace halden::meter_side
