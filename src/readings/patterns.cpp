#include "readings/patterns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace halden {

namespace {

struct Shape {
  int least_whole_digits = 0;
  int places = 0;
  bool percent = false;
  std::string_view suffix;
};

Shape read_shape(std::string_view pattern) {
  Shape shape;
  std::size_t at = 0;
  for (; at < pattern.size() && (pattern[at] == '#' || pattern[at] == '0'); ++at)
    shape.least_whole_digits += pattern[at] == '0';
  if (at < pattern.size() && pattern[at] == '.')
    for (++at; at < pattern.size() && pattern[at] == '0'; ++at) ++shape.places;
  shape.suffix = pattern.substr(at);
  shape.percent = shape.suffix.find('%') != std::string_view::npos;
  return shape;
}

// 0.d1d2d3... times 10^point, d1 not 0; no digits at all for zero.
struct Decimal {
  std::array<char, 20> digits{};
  int count = 0;
  int point = 0;
};

Decimal shortest_decimal(double magnitude) {
  Decimal decimal;
  if (magnitude == 0.0 || !std::isfinite(magnitude)) return decimal;
  std::array<char, 32> text;  // at most 17 digits, a point and "e-324"
  const char* const end =
      std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific).ptr;
  const char* at = text.data();
  for (; *at != 'e'; ++at)
    if (*at != '.') decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, end, decimal.point);
  ++decimal.point;
  return decimal;
}

void round_up(Decimal& decimal) {
  const auto digit = [&](int index) -> char& { return decimal.digits[static_cast<std::size_t>(index)]; };
  while (decimal.count > 0 && digit(decimal.count - 1) == '9') --decimal.count;
  if (decimal.count > 0) {
    ++digit(decimal.count - 1);
    return;
  }
  digit(0) = '1';
  decimal.count = 1;
  ++decimal.point;
}

void round_to_places(Decimal& decimal, int places) {
  const int kept = decimal.point + places;
  if (kept >= decimal.count) return;
  const bool up = kept >= 0 && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  decimal.count = std::max(kept, 0);
  if (up) round_up(decimal);
}

// Writes the digits with the indices `from` to `to` - 1 of the decimal to `target`, which holds zeros.
void copy_digits(const Decimal& decimal, int from, int to, char* target) {
  for (int index = std::max(from, 0); index < std::min(to, decimal.count); ++index)
    target[index - from] = decimal.digits[static_cast<std::size_t>(index)];
}

}  // namespace

std::string format_pattern(double value, std::string_view pattern) {
  const Shape shape = read_shape(pattern);
  Decimal decimal = shortest_decimal(std::fabs(value));
  if (shape.percent) decimal.point += 2;
  round_to_places(decimal, shape.places);

  const bool negative = value < 0.0 && decimal.count > 0;
  const int whole_digits = std::max({shape.least_whole_digits, decimal.count > 0 ? decimal.point : 0, 0});
  const int point_length = shape.places > 0 ? 1 + shape.places : 0;
  const auto number_length = static_cast<std::size_t>(negative + whole_digits + point_length);

  std::string text;
  text.reserve(number_length + shape.suffix.size());
  text.assign(number_length, '0');
  char* at = text.data();
  if (negative) *at++ = '-';
  copy_digits(decimal, decimal.point - whole_digits, decimal.point, at);
  at += whole_digits;
  if (shape.places > 0) {
    *at++ = '.';
    copy_digits(decimal, decimal.point, decimal.point + shape.places, at);
  }
  return text.append(shape.suffix);
}

}  // namespace halden
