#include "readings/scaled_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "readings/numbers.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr int digits = 4;

// From here on a value has five digits: halves round away from zero.
constexpr double five_digits = 9999.5;

// Digits behind the point by exponent modulo 3.
constexpr std::array<int, 3> places = {1, 3, 2};

double tenth(double value, Division division) {
  return division == Division::integer ? static_cast<double>(integer_quotient(value, 10.0)) : value / 10.0;
}

std::string_view unit_of(int exponent, const UnitTable& units) {
  return units[static_cast<std::size_t>(std::min((exponent + 2) / 3, 4))];
}

// An unknown range counts as the highest.
int exponent_of_range(int range) {
  if (range == 0) return 0;
  return range == 1 || range == 2 ? range : 3;
}

}  // namespace

std::optional<double> limited_product(ProductLimit limit, double value,
                                      std::initializer_list<double> factors) {
  for (const double factor : factors) {
    value *= factor;
    if (limit == ProductLimit::int32 && !to_int32(value)) return std::nullopt;
  }
  return value;
}

std::optional<std::string> current_text_of(const Scaling& scaling, double raw) {
  std::optional<double> value =
      limited_product(scaling.product_limit, raw,
                      {static_cast<double>(scaling.ct_ratio), static_cast<double>(scaling.current_scale)});
  if (!value) return std::nullopt;

  int exponent = exponent_of_range(scaling.current_range);
  // Behind a transformer milliamperes are never shown.
  if (exponent == 0 && scaling.ct_ratio != 1) {
    value = static_cast<double>(integer_quotient(*value, 10.0));
    exponent = 1;
  }
  return prefix_text(*value, exponent, Division::integer, current_units);
}

std::optional<std::string> voltage_text_of(const Scaling& scaling, double raw) {
  const std::optional<double> value =
      limited_product(scaling.product_limit, raw, {static_cast<double>(scaling.pt_ratio)});
  if (!value) return std::nullopt;
  return prefix_text(*value, 0, Division::integer, voltage_units);
}

std::optional<std::string> power_text_of(const Scaling& scaling, double raw, Division division,
                                         const UnitTable& units) {
  const std::optional<double> value =
      limited_product(scaling.product_limit, raw,
                      {static_cast<double>(scaling.ct_ratio), static_cast<double>(scaling.current_scale),
                       static_cast<double>(scaling.pt_ratio)});
  if (!value) return std::nullopt;
  return prefix_text(*value, exponent_of_range(scaling.current_range), division, units);
}

std::string real_power_text_of(const Scaling& scaling, double raw, const UnitTable& units) {
  const double value = raw * scaling.ct_ratio * static_cast<double>(scaling.current_scale) * scaling.pt_ratio;
  return prefix_text(value, exponent_of_range(scaling.current_range), Division::real, units);
}

std::string prefix_text(double value, int exponent, Division division, const UnitTable& units) {
  if (!std::isfinite(value)) return std::string(overload_text);
  for (; std::fabs(value) >= five_digits; ++exponent) value = tenth(value, division);

  const auto counts = static_cast<std::int64_t>(std::round(value));
  return counts_text(counts, digits, places[static_cast<std::size_t>(exponent % 3)],
                     unit_of(exponent, units));
}

}  // namespace halden
