// How the meter says "over range", and how that is shown.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace halden {

inline constexpr int over_range = -1;
inline constexpr std::string_view overload_text = "  OL ";

inline bool any_over_range(std::initializer_list<double> raw_values) {
  return std::find(raw_values.begin(), raw_values.end(), over_range) != raw_values.end();
}

}  // namespace halden
