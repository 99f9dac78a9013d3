#include "readings/patterns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

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

constexpr std::array<double, 7> powers_of_ten = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr double most_quick_counts = 1e13;
constexpr int most_quick_digits = 20;

// `magnitude` times 10^places, rounded; nothing where the shortest decimal text has to decide. Below 1e13
// counts it need not: the half between two counts has so few digits that it is the shortest text of the
// double nearest to it, so comparing with that double rounds every text to the same side. A product that is
// rounded up to the next count does no harm, because the value is then below the half behind that count.
std::optional<std::int64_t> quick_counts(double magnitude, int places) {
  if (places >= static_cast<int>(powers_of_ten.size())) return {};
  const double scale = powers_of_ten[static_cast<std::size_t>(places)];
  const double product = magnitude * scale;
  if (!(product < most_quick_counts)) return {};
  const auto counts = static_cast<std::int64_t>(product);
  return magnitude >= (static_cast<double>(counts) + 0.5) / scale ? counts + 1 : counts;
}

std::string exact_pattern(double value, const Shape& shape) {
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

}  // namespace

std::string format_pattern(double value, std::string_view pattern) {
  const Shape shape = read_shape(pattern);
  const auto counts = quick_counts(std::fabs(value), shape.places + (shape.percent ? 2 : 0));
  const int least_digits = shape.least_whole_digits + shape.places;
  if (!counts || least_digits > most_quick_digits) return exact_pattern(value, shape);
  return counts_text(value < 0.0 ? -*counts : *counts, least_digits, shape.places, shape.suffix);
}

// Written from the last digit to the first.
std::string counts_text(std::int64_t counts, int least_digits, int places, std::string_view suffix) {
  std::array<char, most_quick_digits + 2> text;
  char* const end = text.data() + text.size();
  char* at = end;
  std::int64_t rest = counts < 0 ? -counts : counts;
  const auto write_digit = [&] {
    *--at = static_cast<char>('0' + rest % 10);
    rest /= 10;
  };
  for (int place = 0; place < places; ++place) write_digit();
  if (places > 0) *--at = '.';
  for (int digit = places; digit < least_digits || rest > 0; ++digit) write_digit();
  if (counts < 0) *--at = '-';
  return std::string(at, end).append(suffix);
}

}  // namespace halden
