// Reads and rounds the numbers that the meter sends and the user types: lenient, half to even, with a defined
// result for every input. Nothing here depends on the desktop's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace halden {

// The number at the start of a text: leading blanks, an optional sign (blanks may stand between it and the
// digits), digits, optionally a point with digits. There is no exponent; whatever follows is ignored. No
// digits give 0, more digits than a double can hold give the largest double. The result is finite and never
// -0.
double leading_number(std::string_view text);

// The number in a field of fixed width: digits with at most one sign before them and blanks around; blanks
// may stand between sign and digits. Nothing for any other text.
std::optional<double> field_number(std::string_view field);

// To the nearest whole number, halves to the even one; never -0.
double round_half_even(double value);

// x \ y: both are rounded to whole numbers (halves to even), then the quotient is cut toward zero. A y that
// rounds to 0 gives 0. A magnitude above 9e18 counts as 9e18, NaN as 0.
std::int64_t integer_quotient(double x, double y);

// Rounded half to even; nothing when the result does not fit, and for NaN.
std::optional<std::int16_t> to_int16(double value);
std::optional<std::int32_t> to_int32(double value);

}  // namespace halden
