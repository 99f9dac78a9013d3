// What the raw numbers of the meter mean: the settings that scale them to amperes, volts and watts, the value
// for "over range", and the unit of angles.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "readings/wiring.h"

namespace halden {

// How large a scaled value of one phase may become. A live reading ends at 32 bits and keeps its last text; a
// stored record has no last text of its own, so its values have no limit.
enum class ProductLimit { int32, none };

// The part of the meter's settings that the readings depend on.
struct Scaling {
  std::int16_t ct_ratio = 0;       // current transformer, n to 1; 0 until the meter's status was read
  std::int16_t pt_ratio = 0;       // voltage transformer, n to 1
  float current_scale = 1.0f;      // clamp factor: 1.0, 1.2 or 3.0
  std::int16_t current_range = 0;  // 0..3: raw current counts 0.1 mA x 10^range, raw power 0.1 W x 10^range
  Wiring wiring_system = Wiring::w3p4w;
  std::int32_t md_period = 0;  // demand period in minutes
  ProductLimit product_limit = ProductLimit::int32;
};

inline constexpr int over_range = -1;  // as the meter sends it
inline constexpr std::string_view overload_text = "  OL ";

inline bool any_over_range(std::initializer_list<double> raw_values) {
  return std::find(raw_values.begin(), raw_values.end(), over_range) != raw_values.end();
}

// A raw value that the program derives; nothing while it is over range. Unlike the meter's own it may be -1.
using DerivedRaw = std::optional<double>;

inline DerivedRaw from_meter(double raw) { return raw == over_range ? DerivedRaw() : DerivedRaw(raw); }

// Angles are signed tenths of a degree, counter-clockwise positive. The program's pi has six digits; every
// angle that is shown is calculated with it.
inline constexpr double short_pi = 3.14159;
inline constexpr double tenths_to_radians = short_pi / 1800.0;
inline constexpr float radians_to_tenths = static_cast<float>(1800.0 / short_pi);

// a - b; outside -1800..1800 one turn of 3600 is added or subtracted.
constexpr double angle_difference(double a, double b) {
  const double difference = a - b;
  if (difference > 1800.0) return difference - 3600.0;
  if (difference < -1800.0) return difference + 3600.0;
  return difference;
}

}  // namespace halden
