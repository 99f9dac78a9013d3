#include "readings/scaled_text.h"

#include "readings/numbers.h"

namespace halden {

namespace {

// An unknown range counts as the highest.
int exponent_of_range(int range) {
  if (range == 0) return 0;
  return range == 1 || range == 2 ? range : 3;
}

}  // namespace

std::optional<double> product_32bit(double value, std::initializer_list<double> factors) {
  for (const double factor : factors) {
    value *= factor;
    if (!to_int32(value)) return std::nullopt;
  }
  return value;
}

std::optional<std::string> current_text_of(const Scaling& scaling, double raw) {
  std::optional<double> value =
      product_32bit(raw, {static_cast<double>(scaling.ct_ratio), static_cast<double>(scaling.current_scale)});
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
  const std::optional<double> value = product_32bit(raw, {static_cast<double>(scaling.pt_ratio)});
  if (!value) return std::nullopt;
  return prefix_text(*value, 0, Division::integer, voltage_units);
}

std::optional<std::string> power_text_of(const Scaling& scaling, double raw, Division division,
                                         const UnitTable& units) {
  const std::optional<double> value =
      product_32bit(raw, {static_cast<double>(scaling.ct_ratio), static_cast<double>(scaling.current_scale),
                          static_cast<double>(scaling.pt_ratio)});
  if (!value) return std::nullopt;
  return prefix_text(*value, exponent_of_range(scaling.current_range), division, units);
}

std::string real_power_text_of(const Scaling& scaling, double raw, const UnitTable& units) {
  const double value = raw * scaling.ct_ratio * static_cast<double>(scaling.current_scale) * scaling.pt_ratio;
  return prefix_text(value, exponent_of_range(scaling.current_range), Division::real, units);
}

}  // namespace halden
