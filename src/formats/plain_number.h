// The text of a recorded field as a plain decimal number in the unit without a prefix, which any program can
// add up. Digits are kept as they stand and only the decimal point is moved, so that no rounding error
// enters.
//
//   "   2.410KW"  2410      "   999.9mA"  0.9999      "-0.045KVAR"  -45      "     030.5"  30.5
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace halden {

// Room for the longest one: 18 digits, the zeros of a prefix, sign and point. More than the number is
// overwritten, but never more than this.
inline constexpr std::size_t longest_plain_number = 48;

// Writes the number at the start of the field with that decimal point and returns the end of it: `to` itself
// when there is none (blanks, "OL", "------"). The prefix is the letter directly behind the number.
char* write_plain_number(std::string_view field, char point, char* to);

// The same of counts x 10^exponent; the exponent is -18 to 12.
char* write_plain_number(std::int64_t counts, int exponent, char point, char* to);

}  // namespace halden
