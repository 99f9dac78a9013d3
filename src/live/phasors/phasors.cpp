#include "live/phasors/phasors.h"

#include <cmath>

#include "readings/numbers.h"
#include "readings/raw_values.h"

namespace halden {

namespace {

constexpr double right_angle = 900;
constexpr double half_turn = 1800;

// From the end of phasor b to the end of phasor a.
float angle_between_ends(double a, double angle_a, double b, double angle_b) {
  const double radians_a = angle_a * tenths_to_radians;
  const double radians_b = angle_b * tenths_to_radians;
  return own_atan(a * std::cos(radians_a) - b * std::cos(radians_b),
                  a * std::sin(radians_a) - b * std::sin(radians_b));
}

}  // namespace

float own_atan(double x, double y) {
  if (x == 0) {
    if (y == 0) return 0;
    return static_cast<float>(y < 0 ? -right_angle : right_angle);
  }
  double angle = std::atan(y / x) * static_cast<double>(radians_to_tenths);
  if (x < 0) angle += y < 0 ? -half_turn : half_turn;
  return static_cast<float>(angle);
}

double PhasorAngles::line_angle(std::size_t index) const {
  if (index == 0) return static_cast<double>(v12_phasor_angle);
  return index == 1 ? static_cast<double>(v23_phasor_angle) : v31_phasor_angle;
}

PhasorAngles calculate_vi_angles(const PowerReadings& raw) {
  PhasorAngles angles;
  for (std::size_t p = 0; p < phase_count; ++p) {
    if (p > 0) angles.v_phasor_angle[p] = angle_difference(raw.v_angle[0], raw.v_angle[p]);
    angles.i_phasor_angle[p] = angle_difference(raw.v_angle[0], raw.i_angle[p]);
  }
  const auto& v = raw.v_raw;
  const auto& angle = angles.v_phasor_angle;
  angles.v12_phasor_angle = angle_between_ends(v[0], angle[0], v[1], angle[1]);
  angles.v23_phasor_angle = angle_between_ends(v[1], angle[1], v[2], angle[2]);
  const auto v31 = to_int32(static_cast<double>(angle_between_ends(v[2], angle[2], v[0], angle[0])));
  angles.v31_phasor_angle = v31.value_or(0);
  return angles;
}

}  // namespace halden
