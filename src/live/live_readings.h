// The raw readings of the last power frame, as the meter sent them or as the formatters derived them. A raw
// value of -1 means over range. Angles are signed tenths of a degree.
#pragma once

#include <array>
#include <cstdint>

#include "screen/panels.h"

namespace halden {

template <typename Number>
using PerPhase = std::array<Number, phase_count>;

struct LiveReadings {
  PerPhase<double> v_raw{};
  PerPhase<double> i_raw{};
  PerPhase<double> w_raw{};
  PerPhase<double> va_raw{};
  PerPhase<double> var_raw{};
  PerPhase<double> pf_raw{};
  PerPhase<double> angle_raw{};
  PerPhase<double> v_angle{};
  PerPhase<std::int32_t> i_angle{};
  PerPhase<std::int32_t> line_raw{};  // v12_raw, v23_raw, v31_raw
};

// How many phases a wiring system uses: 1P2W one, 1P3W two, the three-phase systems three.
constexpr int phases_in_use(std::int16_t wiring_system) {
  return wiring_system == 1 ? 2 : (wiring_system == 2 || wiring_system == 3) ? 3 : 1;
}

}  // namespace halden
