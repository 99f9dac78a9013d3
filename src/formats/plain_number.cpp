#include "formats/plain_number.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "formats/record_field.h"

namespace halden {

namespace {

constexpr std::ptrdiff_t most_digits = 18;
constexpr std::size_t word_length = sizeof(std::uint64_t);
constexpr std::uint64_t one_in_each_byte = 0x0101010101010101;

// The exponent of a prefix letter, 0 of any other character.
constexpr auto prefix_exponents = [] {
  std::array<std::int8_t, 256> exponents{};
  exponents['m'] = -3;
  exponents['K'] = 3;
  exponents['M'] = 6;
  exponents['G'] = 9;
  exponents['T'] = 12;
  return exponents;
}();

int prefix_exponent(char c) { return prefix_exponents[static_cast<unsigned char>(c)]; }

bool is_digit(char c) { return static_cast<unsigned char>(c - '0') <= 9; }

const char* behind_blanks(const char* at, const char* end) {
  while (at != end && *at == ' ') ++at;
  return at;
}

const char* behind_digits(const char* at, const char* end) {
  while (at != end && is_digit(*at)) ++at;
  return at;
}

// ---- any text ----

char* write_zeros(char* to, std::ptrdiff_t count) {
  while (count-- > 0) *to++ = '0';
  return to;
}

// The digits, of which `before_point` stand before the point; that may be none, or more than there are.
char* write_digits(const char* digits, std::ptrdiff_t count, std::ptrdiff_t before_point, char point,
                   char* to) {
  for (; before_point > 1 && count > 0 && *digits == '0'; --before_point, --count) ++digits;
  if (before_point <= 0) {
    *to++ = '0';
    *to++ = point;
    to = write_zeros(to, -before_point);
  }
  for (std::ptrdiff_t index = 0; index < count; ++index) {
    if (index == before_point && index > 0) *to++ = point;
    *to++ = digits[index];
  }
  return write_zeros(to, before_point - count);
}

char* write_any_number(std::string_view field, char point, char* to) {
  const char* const end = field.data() + field.size();
  const char* at = behind_blanks(field.data(), end);
  const bool negative = at != end && *at == '-';
  if (negative || (at != end && *at == '+')) at = behind_blanks(at + 1, end);
  const char* const whole = at;
  at = behind_digits(whole, end);
  const std::ptrdiff_t before_point = at - whole;
  const char* const fraction = at != end && *at == '.' ? at + 1 : at;
  at = behind_digits(fraction, end);
  const std::ptrdiff_t count = before_point + (at - fraction);
  if (count == 0 || count > most_digits) return to;
  std::array<char, most_digits> digits;
  std::memcpy(digits.data(), whole, static_cast<std::size_t>(before_point));
  std::memcpy(digits.data() + before_point, fraction, static_cast<std::size_t>(at - fraction));
  if (negative) *to++ = '-';
  const int exponent = at == end ? 0 : prefix_exponent(*at);
  return write_digits(digits.data(), count, before_point + exponent, point, to);
}

// ---- a field as the program writes it ----
// The fields of a long file are by far the most work of an export. Whole words are read and copied, also
// behind what is meant; the rooms at both ends are large enough.

std::uint64_t word_at(const char* from) {
  std::uint64_t word = 0;
  std::memcpy(&word, from, word_length);
  return word;
}

void copy_word(char* to, const char* from) { std::memcpy(to, from, word_length); }

// The highest bit of each byte of ASCII text that is no digit.
std::uint64_t marks_of_others(std::uint64_t text) {
  const std::uint64_t digits = text ^ ('0' * one_in_each_byte);
  return (digits + (0x80 - 10) * one_in_each_byte) & (0x80 * one_in_each_byte);
}

std::size_t first_mark(std::uint64_t marks) { return static_cast<std::size_t>(std::countr_zero(marks)) / 8; }

struct NumberParts {
  const char* digits;    // the first one
  std::size_t point;     // how many stand before the point
  std::size_t fraction;  // and behind it
};

// Digits before and behind the point side by side.
void copy_digits(const NumberParts& number, char* to) {
  copy_word(to, number.digits);
  copy_word(to + number.point, number.digits + number.point + 1);
}

char* write_unprefixed(NumberParts number, char point, char* to) {
  for (; number.point > 1 && *number.digits == '0'; --number.point) ++number.digits;
  copy_word(to, number.digits);
  to[number.point] = point;
  return to + number.point + 1 + number.fraction;
}

// At least one digit before the point, that is no leading zero; the exponent moves the point to the end or
// behind it.
char* write_large(const NumberParts& number, std::size_t exponent, char* to) {
  copy_digits(number, to);
  std::memset(to + number.point + number.fraction, '0', 2 * word_length);
  return to + number.point + exponent;
}

// At most three digits before the point, in thousandths of the unit.
char* write_small(const NumberParts& number, char point, char* to) {
  std::memcpy(to, "0.00", 4);
  to[1] = point;
  to += 2 + (3 - number.point);
  copy_digits(number, to);
  return to + number.point + number.fraction;
}

}  // namespace

char* write_plain_number(std::string_view field, char point, char* to) {
  if (field.size() != field_text_length) return write_any_number(field, point, to);
  std::array<char, 4 * word_length> room{};
  std::memcpy(room.data(), field.data(), field_text_length);
  const std::uint64_t others = word_at(room.data()) ^ (' ' * one_in_each_byte);
  if (others == 0) return write_any_number(field, point, to);
  const char* at = room.data() + first_mark(others);
  const bool negative = *at == '-';
  at += negative ? 1 : 0;
  const std::uint64_t text = word_at(at);
  const std::uint64_t marks = marks_of_others(text), behind_point = marks & (marks - 1);
  if ((text & (0x80 * one_in_each_byte)) != 0 || behind_point == 0) return write_any_number(field, point, to);
  const std::size_t before = first_mark(marks), end = first_mark(behind_point);
  if (before == 0 || before > 3 || at[before] != '.') return write_any_number(field, point, to);
  const NumberParts number = {at, before, end - before - 1};
  const int exponent = prefix_exponent(at[end]);
  *to = '-';
  char* const start = to + (negative ? 1 : 0);
  if (exponent == 0) return write_unprefixed(number, point, start);
  if (exponent < 0) return write_small(number, point, start);
  if (*at == '0' || static_cast<std::size_t>(exponent) < number.fraction)
    return write_any_number(field, point, to);
  return write_large(number, static_cast<std::size_t>(exponent), start);
}

char* write_plain_number(std::int64_t counts, int exponent, char point, char* to) {
  std::array<char, 24> digits;
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), counts).ptr;
  const char* const first = digits.data() + (counts < 0 ? 1 : 0);
  if (counts < 0) *to++ = '-';
  return write_digits(first, end - first, end - first + exponent, point, to);
}

}  // namespace halden
