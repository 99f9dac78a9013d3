#include "formats/field_reading.h"

#include <array>
#include <cstddef>

namespace halden {

namespace {

struct Prefix {
  std::string_view text;
  int exponent;
};

constexpr std::array<Prefix, 6> prefixes = {{{"K", 3}, {"M", 6}, {"G", 9}, {"T", 12}, {"m", -3}, {"", 0}}};

constexpr int most_digits = 18;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Follows the number.
int prefix_in(std::string_view text) {
  for (const char c : text)
    for (const Prefix& prefix : prefixes)
      if (!prefix.text.empty() && prefix.text[0] == c) return prefix.exponent;
  return 0;
}

}  // namespace

std::optional<FieldReading> read_field(std::string_view field) {
  std::size_t at = 0;
  const auto skip_blanks = [&] {
    while (at < field.size() && field[at] == ' ') ++at;
  };
  skip_blanks();
  const bool negative = at < field.size() && field[at] == '-';
  if (negative || (at < field.size() && field[at] == '+')) ++at;
  skip_blanks();
  FieldReading reading;
  int digits = 0;
  const auto read_digits = [&] {
    for (; at < field.size() && is_digit(field[at]); ++at, ++digits)
      if (digits < most_digits) reading.counts = 10 * reading.counts + (field[at] - '0');
  };
  read_digits();
  if (at < field.size() && field[at] == '.') {
    const int before_point = digits;
    ++at;
    read_digits();
    reading.exponent = before_point - digits;
  }
  if (digits == 0 || digits > most_digits) return std::nullopt;
  reading.prefix = prefix_in(field.substr(at));
  reading.exponent += reading.prefix;
  if (negative) reading.counts = -reading.counts;
  return reading;
}

std::string_view prefix_name(int prefix) {
  for (const Prefix& known : prefixes)
    if (known.exponent == prefix) return known.text;
  return {};
}

}  // namespace halden
