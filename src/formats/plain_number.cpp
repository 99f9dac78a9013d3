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
constexpr std::size_t most_before_point = 3;
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
  if (count == 0) before_point = 1;  // zero is "0", whatever its prefix is
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
// The fields of a long file are by far the most work of an export. A number with its prefix has at most eight
// characters, which are kept in one word, the first one in its lowest byte. Whole words are written, also
// behind what is meant: the room at the other end is large enough.

using Characters = std::uint64_t;

Characters characters_at(const char* from) {
  Characters characters = 0;
  std::memcpy(&characters, from, word_length);
  return characters;
}

Characters without_first(Characters characters, std::size_t count) { return characters >> (8 * count); }

char first_of(Characters characters) { return static_cast<char>(characters & 0xFF); }

void write_word(char* to, Characters characters) { std::memcpy(to, &characters, word_length); }

// The highest bit of each byte that is no digit, in ASCII text.
std::uint64_t marks_of_others(Characters text) {
  const std::uint64_t digits = text ^ ('0' * one_in_each_byte);
  return (digits + (0x80 - 10) * one_in_each_byte) & (0x80 * one_in_each_byte);
}

std::size_t first_mark(std::uint64_t marks) { return static_cast<std::size_t>(std::countr_zero(marks)) / 8; }

struct NumberParts {
  Characters text;       // from the first digit on
  std::size_t point;     // how many digits stand before the point
  std::size_t fraction;  // and behind it
};

// Digits before and behind the point side by side.
void write_joined(const NumberParts& number, char* to) {
  write_word(to, number.text);
  write_word(to + number.point, without_first(number.text, number.point + 1));
}

char* write_unprefixed(NumberParts number, char point, char* to) {
  for (; number.point > 1 && first_of(number.text) == '0'; --number.point)
    number.text = without_first(number.text, 1);
  write_word(to, number.text);
  to[number.point] = point;
  return to + number.point + 1 + number.fraction;
}

// Without a leading zero; the exponent moves the point to the end or behind it.
char* write_large(const NumberParts& number, std::size_t exponent, char* to) {
  write_joined(number, to);
  std::memset(to + number.point + number.fraction, '0', 2 * word_length);
  return to + number.point + exponent;
}

// In thousandths of the unit.
char* write_small(const NumberParts& number, char point, char* to) {
  std::memcpy(to, "0.00", 4);
  to[1] = point;
  to += 2 + (most_before_point - number.point);
  write_joined(number, to);
  return to + number.point + number.fraction;
}

struct SignedText {
  Characters text;
  bool negative;
};

// What stands behind blanks and a minus sign.
SignedText without_blanks_and_sign(const char* field) {
  if (field[0] == ' ' && field[1] == ' ') {
    Characters text = characters_at(field + 2);
    const std::uint64_t others = text ^ (' ' * one_in_each_byte);
    text = others == 0 ? 0 : without_first(text, first_mark(others));
    const bool negative = first_of(text) == '-';
    return {negative ? without_first(text, 1) : text, negative};
  }
  const char* const at = field + (field[0] == ' ' ? 1 : 0);
  const bool negative = *at == '-';
  return {characters_at(at + (negative ? 1 : 0)), negative};
}

}  // namespace

char* write_plain_number(std::string_view field, char point, char* to) {
  if (field.size() != field_text_length || std::endian::native != std::endian::little)
    return write_any_number(field, point, to);
  const auto [text, negative] = without_blanks_and_sign(field.data());
  const std::uint64_t marks = marks_of_others(text), behind_point = marks & (marks - 1);
  const std::size_t before = first_mark(marks), end = first_mark(behind_point);
  const bool is_ascii = (text & (0x80 * one_in_each_byte)) == 0;
  if (!is_ascii || behind_point == 0 || before == 0 || end == before + 1 || before > most_before_point ||
      first_of(without_first(text, before)) != '.')
    return write_any_number(field, point, to);
  const NumberParts number = {text, before, end - before - 1};
  const int exponent = prefix_exponent(first_of(without_first(text, end)));
  *to = '-';
  char* const start = to + (negative ? 1 : 0);
  if (exponent == 0) return write_unprefixed(number, point, start);
  if (exponent < 0) return write_small(number, point, start);
  if (first_of(text) == '0' || static_cast<std::size_t>(exponent) < number.fraction)
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
