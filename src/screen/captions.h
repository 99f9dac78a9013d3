// The two languages of the program: the caption table of the controls.
#pragma once

#include <cstdint>

namespace halden {

struct Screen;

inline constexpr std::int16_t english = 0;
inline constexpr std::int16_t chinese = 1;

// Sets every caption of the table, in Traditional Chinese for `language` 1 and in English for any other
// value; those of the datalogger window too.
void apply_captions(std::int16_t language, Screen& screen);

}  // namespace halden
