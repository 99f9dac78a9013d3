#include "readings/prefix_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"

namespace halden {

namespace {

// From here on "0000" writes five digits (halves round away from zero).
constexpr double five_digits = 9999.5;

// Digits before the point by exponent modulo 3.
constexpr std::array<std::size_t, 3> whole_digits = {3, 1, 2};

double tenth(double value, Division division) {
  return division == Division::integer ? static_cast<double>(integer_quotient(value, 10.0)) : value / 10.0;
}

std::string_view unit_of(int exponent, const UnitTable& units) {
  return units[static_cast<std::size_t>(std::min((exponent + 2) / 3, 4))];
}

}  // namespace

std::string prefix_text(double value, int exponent, Division division, const UnitTable& units) {
  if (!std::isfinite(value)) return std::string(overload_text);
  for (; std::fabs(value) >= five_digits; ++exponent) value = tenth(value, division);

  std::string text = format_pattern(value, "0000");
  const std::size_t sign = text[0] == '-' ? 1 : 0;
  text.insert(sign + whole_digits[static_cast<std::size_t>(exponent % 3)], 1, '.');
  return text.append(unit_of(exponent, units));
}

}  // namespace halden
