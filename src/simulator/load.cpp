#include "simulator/load.h"

#include <cmath>
#include <numbers>

namespace halden::simulator {

namespace {

constexpr double degree = std::numbers::pi / 180.0;

// The periods have no large common divisor, so the readings do not repeat within a day.
double wave(double uptime_s, double period_s, double shift) {
  return std::sin(2.0 * std::numbers::pi * uptime_s / period_s + shift);
}

double nominal_angle_deg(int phase, Wiring wiring) {
  if (wiring == Wiring::w1p3w) return phase == 1 ? 0.0 : 180.0;
  return std::array{0.0, -120.0, 120.0}[static_cast<std::size_t>(phase - 1)];
}

// Around 230 V, 5 to 13 A, 10 to 20 degrees of lag. The slow terms of the current are the demand profile:
// quarters of an hour with more and with less power.
Reading drifting(int phase, Wiring wiring, double t) {
  constexpr std::array voltage_offset_v = {0.6, -0.9, 0.2};
  constexpr std::array current_offset_a = {0.2, -0.3, 0.1};
  const auto index = static_cast<std::size_t>(phase - 1);
  const double shift = 1.3 * phase;
  Reading reading;
  reading.voltage_v =
      230.0 + voltage_offset_v[index] + 1.5 * wave(t, 613.0, shift) + 0.4 * wave(t, 47.0, 2.0 * shift);
  reading.voltage_angle_deg = nominal_angle_deg(phase, wiring);
  if (phase > 1) reading.voltage_angle_deg += 0.3 * wave(t, 389.0, shift);
  reading.current_a = 9.0 + current_offset_a[index] + 2.2 * wave(t, 5407.0, 0.4) +
                      0.9 * wave(t, 307.0, shift) + 0.3 * wave(t, 23.0, 1.7 * shift);
  reading.current_lag_deg = 15.0 + 3.4 * wave(t, 1801.0, 0.7 * shift) + 1.1 * wave(t, 71.0, shift);
  return reading;
}

int rounded(double value) { return static_cast<int>(std::lround(value)); }

// Into (-1800, 1800].
int wrapped_tenths(double tenths) {
  const int whole = rounded(std::remainder(tenths, 3600.0));
  return whole == -1800 ? 1800 : whole;
}

Reading from_raw(const RawPhase& raw, int current_range) {
  const double lag_tenths = std::remainder(static_cast<double>(raw.q) - raw.p, 3600.0);
  return {raw.v / 10.0, -raw.p / 10.0, raw.i * raw_current_unit_a(current_range), lag_tenths / 10.0};
}

}  // namespace

double raw_current_unit_a(int current_range) { return std::pow(10.0, current_range - 4); }

RawPhase to_raw(const Reading& reading, int current_range) {
  const double unit_a = raw_current_unit_a(current_range);
  const double active_w = reading.voltage_v * reading.current_a * std::cos(reading.current_lag_deg * degree);
  RawPhase raw;
  raw.v = rounded(reading.voltage_v * 10.0);
  raw.i = rounded(reading.current_a / unit_a);
  raw.w = rounded(active_w / (1000.0 * unit_a));
  raw.p = wrapped_tenths(-reading.voltage_angle_deg * 10.0);
  raw.q = wrapped_tenths((reading.current_lag_deg - reading.voltage_angle_deg) * 10.0);
  if (raw.i > raw_current_limit) raw.i = raw.w = -1;
  return raw;
}

Reading Load::reading(int phase, const MeterSettings& settings, double uptime_s) const {
  const std::optional<RawPhase>& fixed = override_of(phase);
  if (phase > phases_in_use(settings.wiring)) return {};
  return fixed ? from_raw(*fixed, settings.current_range) : drifting(phase, settings.wiring, uptime_s);
}

RawPhase Load::raw(int phase, const MeterSettings& settings, double uptime_s) const {
  const std::optional<RawPhase>& fixed = override_of(phase);
  if (fixed && phase <= phases_in_use(settings.wiring)) return *fixed;
  return to_raw(reading(phase, settings, uptime_s), settings.current_range);
}

void Load::fix_raw(int phase, RawPhase raw) { overrides_.at(static_cast<std::size_t>(phase - 1)) = raw; }

void Load::free() { overrides_.fill(std::nullopt); }

const std::optional<RawPhase>& Load::override_of(int phase) const {
  return overrides_.at(static_cast<std::size_t>(phase - 1));
}

}  // namespace halden::simulator
