// From the components of the harmonic orders, as the meter sends them, to what is shown and recorded:
// magnitude, percentage of the largest order, and phase angle.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace halden {

inline constexpr std::size_t harmonic_orders = 100;  // 0 to 99; order 0 is never shown

struct HarmonicComponents {
  std::array<std::int16_t, harmonic_orders> cos{};
  std::array<std::int16_t, harmonic_orders> sin{};
};

struct HarmonicValues {
  std::array<float, harmonic_orders> magnitude{};
  std::array<float, harmonic_orders> percent{};  // of the reference, which is 100
  std::array<float, harmonic_orders> angle{};    // degrees
  std::size_t reference = 0;                     // the largest order, the lowest among equals; 0: all are 0
};

// Percentages below 0.1 are 0, and so are the angles of orders below 1 %. An angle is corrected by its
// quadrant, and by -1.1 degrees for the delay of the meter's converter; where the first component is 0 it is
// 180, or 0 with a negative second one.
HarmonicValues harmonic_values(const HarmonicComponents& components);

// By format_pattern, from the shortest decimal text of the float: 43.9 stays 43.9.
std::string format_float(float value, std::string_view pattern);

}  // namespace halden
