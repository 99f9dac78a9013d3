// How raw readings become amperes, volts and watts: the part of the meter's settings that the readings depend
// on.
#pragma once

#include <cstdint>

namespace halden {

struct Scaling {
  std::int16_t ct_ratio = 0;       // current transformer, n to 1; 0 until the meter has told it
  std::int16_t pt_ratio = 0;       // voltage transformer, n to 1
  float current_scale = 1.0f;      // clamp factor: 1.0, 1.2 or 3.0
  std::int16_t current_range = 0;  // 0..3: raw current counts 0.1 mA x 10^range, raw power 0.1 W x 10^range
  std::int16_t wiring_system = 3;  // 0 1P2W, 1 1P3W, 2 3P3W, 3 3P4W
  std::int32_t md_period = 0;      // demand period in minutes
};

}  // namespace halden
