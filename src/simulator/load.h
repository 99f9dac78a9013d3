// The three-phase installation the simulated meter is clipped to: voltages, currents and angles as a smooth
// function of time, the same in every run, with overrides so that tests can set exact numbers.
#pragma once

#include <array>
#include <optional>

#include "simulator/meter_settings.h"

namespace halden::simulator {

// Angles are those of phasors: counter-clockwise positive, V1 at 0, so V2 of a positive-sequence supply
// stands at -120. A positive lag turns the current clockwise from its own voltage.
struct Reading {
  double voltage_v = 0.0;
  double voltage_angle_deg = 0.0;
  double current_a = 0.0;
  double current_lag_deg = 0.0;
};

// One phase in the meter's units: v 0.1 V; i 0.1 mA x 10^range; w 0.1 W x 10^range; p and q tenths of a
// degree. p and q are lag angles, -1800..1800: the phasor of V2 relative to V1 is p1 - p2. i and w are -1
// when the current is over range.
struct RawPhase {
  int v = 0;
  int i = 0;
  int w = 0;
  int p = 0;
  int q = 0;
  bool operator==(const RawPhase&) const = default;
};

// The largest raw current the meter shows: 3 A in range 0, 30 A in range 1, and so on.
inline constexpr int raw_current_limit = 30000;

// 0.1 mA in range 0, 1 mA in range 1, 10 mA in range 2, 100 mA in range 3. The unit of power is 1000 times
// that in W.
double raw_current_unit_a(int current_range);

RawPhase to_raw(const Reading& reading, int current_range);

// Phases are numbered 1 to 3 (anything else throws std::out_of_range). Times are seconds since the meter was
// switched on.
class Load {
 public:
  // A phase the wiring system does not use reads 0 everywhere.
  Reading reading(int phase, const MeterSettings& settings, double uptime_s) const;
  RawPhase raw(int phase, const MeterSettings& settings, double uptime_s) const;

  // Overrides hold until the next one of the same phase, or until free().
  void fix_raw(int phase, RawPhase raw);
  void free();

 private:
  const std::optional<RawPhase>& override_of(int phase) const;

  std::array<std::optional<RawPhase>, 3> overrides_;
};

}  // namespace halden::simulator
