#include "chart/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace halden {

namespace {

constexpr int significant_digits = 5;
constexpr double largest_plain_value = 1e10;
constexpr double rounding = 1e-12;  // relative
constexpr int most_decimals = 30;

using Digits = std::array<char, 512>;  // the longest double without an exponent

std::string without_last_zeros(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace

std::string exact_number(double value) {
  Digits digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value + 0.0, std::chars_format::fixed).ptr;
  return std::string(digits.data(), end);
}

std::string short_number(double value, double largest) {
  const double magnitude = std::abs(value);
  if (magnitude <= rounding * largest) return "0";
  Digits digits;
  char* const begin = digits.data();
  char* const end = begin + digits.size();
  if (!(magnitude < largest_plain_value))
    return std::string(begin,
                       std::to_chars(begin, end, value, std::chars_format::general, significant_digits).ptr);
  const int before_point = static_cast<int>(std::floor(std::log10(magnitude))) + 1;
  const int decimals = std::clamp(significant_digits - before_point, 0, most_decimals);
  return without_last_zeros(
      std::string(begin, std::to_chars(begin, end, value, std::chars_format::fixed, decimals).ptr));
}

}  // namespace halden
