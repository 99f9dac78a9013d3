#include "readings/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace halden {

namespace {

std::string_view without_blanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// from_chars would also take "inf" and "nan".
bool starts_number(std::string_view text) {
  if (!text.empty() && text[0] == '.') text.remove_prefix(1);
  return !text.empty() && is_digit(text[0]);
}

// For digits that from_chars finds out of range: the largest double when the number is too large, 0 when it
// is too small.
double out_of_range(std::string_view digits) {
  const std::size_t first = digits.find_first_not_of('0');
  return first != std::string_view::npos && is_digit(digits[first]) ? std::numeric_limits<double>::max()
                                                                    : 0.0;
}

double unsigned_number(std::string_view text) {
  if (!starts_number(text)) return 0.0;
  double value = 0.0;
  const auto end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  return result.ec == std::errc::result_out_of_range ? out_of_range(text) : value;
}

std::int64_t whole(double value) {
  constexpr double limit = 9e18;  // within int64, and its negative too
  if (std::isnan(value)) return 0;
  return static_cast<std::int64_t>(std::clamp(round_half_even(value), -limit, limit));
}

template <typename Integer>
std::optional<Integer> to_integer(double value) {
  const double rounded = round_half_even(value);
  const bool fits =
      rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max();
  if (!fits) return std::nullopt;
  return static_cast<Integer>(rounded);
}

}  // namespace

double leading_number(std::string_view text) {
  text = without_blanks(text);
  const bool negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) text = without_blanks(text.substr(1));
  const double value = unsigned_number(text);
  return negative && value != 0.0 ? -value : value;
}

std::optional<double> field_number(std::string_view field) {
  std::string_view digits = without_blanks(field);
  if (!digits.empty() && (digits[0] == '-' || digits[0] == '+')) digits = without_blanks(digits.substr(1));
  digits = digits.substr(0, digits.find_last_not_of(' ') + 1);
  if (digits.empty() || !std::all_of(digits.begin(), digits.end(), is_digit)) return std::nullopt;
  return leading_number(field);
}

// The addition turns -0 into 0.
double round_half_even(double value) { return std::nearbyint(value) + 0.0; }

std::int64_t integer_quotient(double x, double y) {
  const std::int64_t divisor = whole(y);
  return divisor == 0 ? 0 : whole(x) / divisor;
}

std::optional<std::int16_t> to_int16(double value) { return to_integer<std::int16_t>(value); }

std::optional<std::int32_t> to_int32(double value) { return to_integer<std::int32_t>(value); }

}  // namespace halden
