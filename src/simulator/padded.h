// Integers in fields of fixed width, as the meter's printf-like routine writes them.
#pragma once

#include <cstddef>
#include <string>

namespace halden::simulator {

// Right-aligned with blanks, exactly `width` characters; what does not fit becomes the largest value that
// does.
std::string blank_padded(int value, std::size_t width);

// At least `width` characters with leading zeros, the sign in front; a wider value is as wide as it is.
std::string zero_padded(int value, std::size_t width);

}  // namespace halden::simulator
