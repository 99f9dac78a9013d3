// The number and the unit prefix in a field of a data file, without a rounding error: digits and powers of
// ten are kept apart until the value is asked for.
//
//   "    987.6W"  9876 x 10^-1      "   1.234KW"  1234 x 10^0      "   123.4mA"  1234 x 10^-4
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace halden {

struct FieldReading {
  std::int64_t counts = 0;
  int exponent = 0;  // the value is counts x 10^exponent in the unit without a prefix
  int prefix = 0;    // the exponent of the prefix: -3 of "m", 0 of none, 3, 6, 9 and 12 of K, M, G and T
};

// Nothing for a field without digits at its start: blanks, "OL", "------". A number of more than 18 digits is
// no reading either.
std::optional<FieldReading> read_field(std::string_view field);

// In the unit whose prefix has that exponent: 987.6W is 0.9876 in KW (3). It is the double nearest to the
// decimal number.
inline double value_in(const FieldReading& reading, int prefix) {
  // Each of these is a double without an error: a single division or multiplication is rounded once.
  static constexpr std::array<double, 23> powers_of_ten = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                           1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                           1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  const int exponent = reading.exponent - prefix;
  const auto index = static_cast<std::size_t>(exponent < 0 ? -exponent : exponent);
  const double power = index < powers_of_ten.size() ? powers_of_ten[index] : std::pow(10.0, index);
  const auto counts = static_cast<double>(reading.counts);
  return exponent < 0 ? counts / power : counts * power;
}

// "m", "", "K", "M", "G", "T".
std::string_view prefix_name(int prefix);

}  // namespace halden
