// Calculates the phasors of the supply: the angle of each relative to V1, and those of the line voltages.
//
// Angles are signed tenths of a degree, counter-clockwise positive. The meter reports how far each voltage
// and current lags; V1 minus that is the phasor's angle.
#pragma once

#include <cstddef>
#include <cstdint>

#include "readings/power_chain.h"

namespace halden {

// The angle of the point (x, y) in -1800 < a <= 1800; 0 for the origin.
float own_atan(double x, double y);

struct PhasorAngles {
  PerPhase<double> v_phasor_angle{};  // v1_phasor_angle is 0
  PerPhase<double> i_phasor_angle{};
  float v12_phasor_angle = 0;
  float v23_phasor_angle = 0;
  std::int32_t v31_phasor_angle = 0;

  // Of V12, V23, V31 for index 0, 1, 2.
  double line_angle(std::size_t index) const;
};

// From the last power frame, by angle_difference.
PhasorAngles calculate_vi_angles(const PowerReadings& raw);

}  // namespace halden
