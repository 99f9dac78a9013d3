#include "simulator/spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace halden::simulator {

namespace {

constexpr double degree = std::numbers::pi / 180.0;

// The converter starts a frame 10 degrees after the rising zero crossing of V1.
constexpr double start_deg = -80.0;

// Chosen so that 400 V and 30000 raw units of current, with their harmonics, stay within 16 bits.
constexpr double voltage_counts_per_raw = 4.0;
constexpr double current_counts_per_raw = 0.5;

struct Harmonic {
  std::size_t order;
  double voltage_percent;
  double current_percent;
  double phase_deg;
};

// Those of a flat-topped supply voltage and of a load of motors and rectifiers.
constexpr std::array<Harmonic, 14> harmonics = {{{2, 0.2, 0.6, 30.0},
                                                 {3, 1.4, 9.5, 160.0},
                                                 {4, 0.1, 0.3, 75.0},
                                                 {5, 2.3, 7.2, 200.0},
                                                 {7, 1.3, 4.6, 20.0},
                                                 {9, 0.5, 2.4, 130.0},
                                                 {11, 0.7, 2.1, 250.0},
                                                 {13, 0.5, 1.6, 310.0},
                                                 {15, 0.2, 0.9, 50.0},
                                                 {17, 0.3, 1.0, 95.0},
                                                 {19, 0.3, 0.8, 145.0},
                                                 {23, 0.2, 0.5, 220.0},
                                                 {25, 0.2, 0.4, 280.0},
                                                 {49, 0.1, 0.3, 15.0}}};

bool is_voltage(int channel) { return channel % 2 == 0; }

// The amplitude of an order as a share of the fundamental's. It varies by 8 % with a period of 173 s.
double share(const Harmonic& harmonic, int channel, double uptime_s) {
  const double percent = is_voltage(channel) ? harmonic.voltage_percent : harmonic.current_percent;
  const double variation =
      std::sin(2.0 * std::numbers::pi * uptime_s / 173.0 + static_cast<double>(harmonic.order));
  return percent / 100.0 * (1.0 + 0.08 * variation);
}

// A x cos(k phi + angle).
void put(Spectrum& spectrum, std::size_t order, double amplitude, double angle_deg) {
  spectrum.cos[order] = static_cast<int>(std::lround(amplitude * std::cos(angle_deg * degree)));
  spectrum.sin[order] = static_cast<int>(std::lround(-amplitude * std::sin(angle_deg * degree)));
}

double squared(const Spectrum& spectrum, std::size_t order) {
  const double cos = spectrum.cos[order];
  const double sin = spectrum.sin[order];
  return cos * cos + sin * sin;
}

// The reading is the RMS value of all components together, so the fundamental is a little smaller.
void fill(Spectrum& spectrum, double rms_counts, double angle_deg, int channel, double uptime_s) {
  double square_sum = 1.0;
  for (const Harmonic& harmonic : harmonics) square_sum += std::pow(share(harmonic, channel, uptime_s), 2);
  const double amplitude = rms_counts * std::numbers::sqrt2 / std::sqrt(square_sum);
  put(spectrum, 1, amplitude, angle_deg + start_deg);
  for (const Harmonic& harmonic : harmonics) {
    const double turn = static_cast<double>(harmonic.order) * (angle_deg + start_deg);
    put(spectrum, harmonic.order, amplitude * share(harmonic, channel, uptime_s), harmonic.phase_deg + turn);
  }
}

int to_raw_units(const Spectrum& spectrum, double counts) {
  return static_cast<int>(std::lround(counts / spectrum.counts_per_raw));
}

}  // namespace

std::array<int, sample_count> waveform(const Spectrum& spectrum) {
  std::array<int, sample_count> samples{};
  for (std::size_t i = 0; i < sample_count; ++i) {
    double value = 0.0;
    for (std::size_t k = 0; k < order_count; ++k) {
      if (spectrum.cos[k] == 0 && spectrum.sin[k] == 0) continue;
      const auto turn = static_cast<double>(k * i * cycles_in_frame % sample_count);
      const double angle = 2.0 * std::numbers::pi * turn / static_cast<double>(sample_count);
      value += spectrum.cos[k] * std::cos(angle) + spectrum.sin[k] * std::sin(angle);
    }
    samples[i] = static_cast<int>(std::lround(std::clamp(value, -32768.0, 32767.0)));
  }
  return samples;
}

Summary summarize(const Spectrum& spectrum) {
  double harmonic_squares = 0.0;
  for (std::size_t k = 2; k < order_count; ++k) harmonic_squares += squared(spectrum, k);
  const double fundamental_square = squared(spectrum, 1);
  Summary summary;
  if (fundamental_square > 0.0)
    summary.thd_tenths =
        static_cast<int>(std::lround(1000.0 * std::sqrt(harmonic_squares / fundamental_square)));
  if (spectrum.over_range) {
    summary.rms = summary.peak_plus = summary.peak_minus = summary.fundamental = -1;
    return summary;
  }
  const auto samples = waveform(spectrum);
  summary.peak_plus = to_raw_units(spectrum, *std::max_element(samples.begin(), samples.end()));
  summary.peak_minus = to_raw_units(spectrum, -*std::min_element(samples.begin(), samples.end()));
  summary.rms =
      to_raw_units(spectrum, std::sqrt(squared(spectrum, 0) + (fundamental_square + harmonic_squares) / 2.0));
  summary.fundamental = to_raw_units(spectrum, std::sqrt(fundamental_square / 2.0));
  return summary;
}

Spectrum measured_spectrum(const Load& load, const MeterSettings& settings, double uptime_s) {
  const int phase = settings.channel / 2 + 1;
  const Reading reading = load.reading(phase, settings, uptime_s);
  Spectrum spectrum;
  if (is_voltage(settings.channel)) {
    spectrum.counts_per_raw = voltage_counts_per_raw;
    fill(spectrum, reading.voltage_v * 10.0 * voltage_counts_per_raw, reading.voltage_angle_deg,
         settings.channel, uptime_s);
  } else {
    spectrum.counts_per_raw = current_counts_per_raw;
    spectrum.over_range = load.raw(phase, settings, uptime_s).i == -1;
    const double raw = std::clamp(reading.current_a / raw_current_unit_a(settings.current_range), 0.0,
                                  double{raw_current_limit});
    fill(spectrum, raw * current_counts_per_raw, reading.voltage_angle_deg - reading.current_lag_deg,
         settings.channel, uptime_s);
  }
  return spectrum;
}

}  // namespace halden::simulator
