// Angles as the meter counts them: signed tenths of a degree, counter-clockwise positive.
#pragma once

namespace halden {

// The program's pi has six digits; every angle that is shown is worked out with it.
inline constexpr double short_pi = 3.14159;
inline constexpr double tenths_to_radians = short_pi / 1800.0;
inline constexpr float radians_to_tenths = static_cast<float>(1800.0 / short_pi);

// a - b, brought once into -1800..1800.
constexpr double angle_difference(double a, double b) {
  const double difference = a - b;
  if (difference > 1800.0) return difference - 3600.0;
  if (difference < -1800.0) return difference + 3600.0;
  return difference;
}

}  // namespace halden
