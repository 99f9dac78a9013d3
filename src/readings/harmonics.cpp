#include "readings/harmonics.h"

#include <charconv>
#include <cmath>

#include "readings/patterns.h"
#include "readings/raw_values.h"

namespace halden {

namespace {

constexpr float smallest_percent = 0.1F;
constexpr float smallest_percent_with_angle = 1.0F;
constexpr double converter_delay_deg = 1.1;

double angle_deg(double cos, double sin) {
  if (cos == 0) return sin >= 0 ? 180 : 0;
  double angle = std::atan(sin / cos) * 180 / short_pi;
  if (cos > 0 && sin < 0) angle += 90;
  if (cos < 0 && sin != 0) angle -= 90;
  return angle - converter_delay_deg;
}

std::size_t largest_order(const std::array<float, harmonic_orders>& magnitude) {
  std::size_t largest = 0;
  for (std::size_t k = 1; k < harmonic_orders; ++k)
    if (magnitude[k] > magnitude[largest]) largest = k;
  return largest;
}

}  // namespace

HarmonicValues harmonic_values(const HarmonicComponents& components) {
  HarmonicValues values;
  for (std::size_t k = 1; k < harmonic_orders; ++k) {
    const double cos = components.cos[k], sin = components.sin[k];
    values.magnitude[k] = static_cast<float>(std::sqrt(cos * cos + sin * sin));
  }
  values.reference = largest_order(values.magnitude);
  if (values.reference == 0) return values;
  for (std::size_t k = 0; k < harmonic_orders; ++k) {
    const float percent = values.magnitude[k] * 100 / values.magnitude[values.reference];
    if (percent < smallest_percent) continue;
    values.percent[k] = percent;
    if (percent >= smallest_percent_with_angle)
      values.angle[k] = static_cast<float>(angle_deg(components.cos[k], components.sin[k]));
  }
  values.percent[values.reference] = 100;
  return values;
}

std::string format_float(float value, std::string_view pattern) {
  std::array<char, 32> text;
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double same = 0;
  std::from_chars(text.data(), end, same);
  return format_pattern(same, pattern);
}

}  // namespace halden
