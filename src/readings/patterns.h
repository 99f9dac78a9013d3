// The one place where a number becomes a text by a pattern: what stands on the screen, in files and on the
// wire.
//
//   0    a digit that always stands        "00000"   -45      -> "-00045"
//   #    a digit that stands when needed   "###0.00" 2.675    -> "2.68"
//   .    the decimal point; after it only 0
//   %    the number is shown times 100     "#0.00%"  0.01234  -> "1.23%"
//   anything else, from there to the end, stands behind the number: "0.00H", "#0.0Hz"
#pragma once

#include <string>
#include <string_view>

namespace halden {

// Rounds half away from zero on the shortest decimal text that names the number, so that 0.35 under "##0.0"
// is 0.4 although the double lies below. More digits before the point than the pattern has are all written. A
// result that rounds to zero has no sign. A value that is not finite counts as 0.
std::string format_pattern(double value, std::string_view pattern);

}  // namespace halden
