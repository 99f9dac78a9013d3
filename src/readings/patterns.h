// Formats a number by a pattern, for the screen, for files and for the commands to the meter.
//
//   0    a digit, always written           "00000"   -45      -> "-00045"
//   #    a digit, written when needed      "###0.00" 2.675    -> "2.68"
//   .    the decimal point; after it only 0
//   %    the number is shown times 100     "#0.00%"  0.01234  -> "1.23%"
//   anything else, from there to the end, is written after the number: "0.00H", "#0.0Hz"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace halden {

// Rounds half away from zero, starting from the shortest decimal text of the double: 0.35 with "##0.0" is 0.4
// although the double is slightly less than 0.35. All digits before the point are written, also when the
// pattern has fewer. A result that rounds to zero has no sign. A value that is not finite counts as 0.
std::string format_pattern(double value, std::string_view pattern);

// Whole counts with at least `least_digits` digits (at most 20) and a point before the last `places` of them:
// -45 with 4 digits, 2 places and "KW" is "-00.45KW".
std::string counts_text(std::int64_t counts, int least_digits, int places, std::string_view suffix);

}  // namespace halden
