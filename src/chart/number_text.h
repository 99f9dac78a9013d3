// Numbers beside a chart as texts. None has an exponent where it can do without.
#pragma once

#include <string>

namespace halden {

// All digits: reads back as the same value.
std::string exact_number(double value);

// A value worked out from others, in five digits, which is as many as readings have. What is no more than the
// rounding of values of the magnitude `largest` is 0.
std::string short_number(double value, double largest);

}  // namespace halden
