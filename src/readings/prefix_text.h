// Four significant digits with an engineering prefix ("123.4mA", "1.234KV", "-12.34MW"): the common last step
// of every reading.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace halden {

// How a value that has too many digits loses one: currents, voltages and phase watts cut it off, the rest
// keep it for the rounding of the digits shown.
enum class Division { integer, real };

// The units of exponent 0, 1 to 3, 4 to 6, 7 to 9, and 10 and more.
using UnitTable = std::array<std::string_view, 5>;

// The text of `value`, which counts 10^(exponent - 1) of the smallest unit: 1234 is 123.4 of units[0] at
// exponent 0, 1.234 of units[1] at 1, 12.34 at 2, 123.4 at 3, 1.234 of units[2] at 4 and so on. Divides by
// ten and raises the exponent until the value rounds to four digits. `exponent` is 0 or more. What is not
// finite gives the overload text.
std::string prefix_text(double value, int exponent, Division division, const UnitTable& units);

}  // namespace halden
