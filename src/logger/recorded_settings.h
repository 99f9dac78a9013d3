// What the settings under which a file was recorded mean, alike for all kinds of stored files.
#pragma once

#include <cstdint>
#include <string_view>

namespace halden {

// A ratio of 0 was never set and counts as 1.
std::int16_t recorded_ratio(std::int16_t ratio);

// "50" of code 1, "60" of code 2, otherwise "Auto".
std::string_view recorded_frequency_text(std::int16_t frequency_code);

}  // namespace halden
