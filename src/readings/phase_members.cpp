// The readings of one phase, and the line voltage between two.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

// The raw value is cut, not rounded: floor(x) == round(x - 0.5). Rounding errors and a W above VA can make
// the square negative.
double derived_magnitude(double square) { return std::sqrt(std::max(square, 0.0)) - 0.5; }

// One count of V x I is 0.01 mVA x 10^range.
constexpr double products_per_va_count = 10000.0;

}  // namespace

void Readings::current(double i) {
  if (any_over_range({i})) {
    current_text = overload_text;
    return;
  }
  if (auto text = current_text_of(scaling_, i)) current_text = std::move(*text);
}

void Readings::voltage(double v) {
  if (any_over_range({v})) {
    voltage_text = overload_text;
    return;
  }
  if (auto text = voltage_text_of(scaling_, v)) voltage_text = std::move(*text);
}

void Readings::line_voltage(double va, double vb, double angle_a, double angle_b) {
  if (any_over_range({va, vb, angle_a, angle_b})) {
    line_voltage_text = overload_text;
    line_voltage_raw.reset();
    return;
  }
  const double theta = (angle_a - angle_b) * tenths_to_radians;
  const auto raw = to_int32(derived_magnitude(va * va + vb * vb - 2.0 * va * vb * std::cos(theta)));
  if (!raw) return;
  line_voltage_raw = *raw;
  if (auto text = voltage_text_of(scaling_, *raw)) line_voltage_text = std::move(*text);
}

void Readings::active_power(double w) {
  if (any_over_range({w})) {
    power_text = overload_text;
    return;
  }
  if (auto text = power_text_of(scaling_, w, Division::integer, w_units)) power_text = std::move(*text);
}

void Readings::apparent_power(double v, double i, double w) {
  if (any_over_range({v, i})) {
    va_text = overload_text;
    va_raw.reset();
    return;
  }
  const auto product = limited_product(scaling_.product_limit, v, {i});
  if (!product) return;
  const std::int64_t magnitude = integer_quotient(*product, products_per_va_count);
  const auto raw = static_cast<double>(w < 0.0 ? -magnitude : magnitude);
  va_raw = raw;
  if (auto text = power_text_of(scaling_, raw, Division::real, va_units)) va_text = std::move(*text);
}

void Readings::reactive_power(DerivedRaw va, DerivedRaw w, double angle_v, double angle_i) {
  if (!va || !w) {
    var_text = overload_text;
    var_raw.reset();
    return;
  }
  const auto magnitude = static_cast<float>(derived_magnitude(*va * *va - *w * *w));
  const double sign = angle_difference(angle_v, angle_i) >= 0.0 ? 1.0 : -1.0;
  // The rounding comes last: it turns a -0 into 0.
  const double raw = round_half_even(sign * static_cast<double>(magnitude));
  var_raw = raw;
  if (auto text = power_text_of(scaling_, raw, Division::real, var_units)) var_text = std::move(*text);
}

void Readings::phase_angle(double v, double i, double angle_v, double angle_i) {
  if (any_over_range({v, i})) {
    angle_text = overload_text;
    angle_raw.reset();
    return;
  }
  const double difference = angle_difference(angle_v, angle_i);
  angle_raw = difference;
  angle_text = format_pattern(difference / 10.0, "000.0");
}

}  // namespace halden
