// The fundamental and the harmonics of one input. Both the harmonics frame and the waveform frame are made
// from this one set of components, so that they agree.
#pragma once

#include <array>
#include <cstddef>

#include "simulator/load.h"

namespace halden::simulator {

inline constexpr std::size_t order_count = 100;
inline constexpr std::size_t sample_count = 1024;
inline constexpr std::size_t cycles_in_frame = 4;  // 256 samples a cycle: enough for order 99

// Components of orders 0..99 in converter counts; sample i of a frame is the sum over k of
// cos[k] x cos(k phi) + sin[k] x sin(k phi), phi = 2 pi x 4 x i / 1024.
struct Spectrum {
  std::array<int, order_count> cos{};
  std::array<int, order_count> sin{};
  double counts_per_raw = 1.0;  // one raw unit (0.1 V, or 0.1 mA x 10^range) in counts
  bool over_range = false;
};

// The samples in counts, -32768..32767, rounded.
std::array<int, sample_count> waveform(const Spectrum& spectrum);

// Over range all but thd_tenths are -1.
struct Summary {
  int rms = 0;          // raw units
  int peak_plus = 0;    // raw units
  int peak_minus = 0;   // raw units, magnitude
  int fundamental = 0;  // RMS of order 1, raw units
  int thd_tenths = 0;   // harmonics as a share of the fundamental, tenths of a percent
};

Summary summarize(const Spectrum& spectrum);

// The spectrum of settings.channel. All 0 when the wiring system does not use that input.
Spectrum measured_spectrum(const Load& load, const MeterSettings& settings, double uptime_s);

}  // namespace halden::simulator
