// Copies of the meter's display, as the datalogger downloads them into a text file: a date line, then one
// number for each byte of 8 dots. A download into a file that is there already appends date line and numbers.
//
//   2009-05-12 15:30:00
//   00000
//   00255
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/pictures.h"
#include "screen/language.h"

namespace halden {

inline constexpr std::size_t hardcopy_width = 240;  // dots
inline constexpr std::size_t hardcopy_height = 128;
inline constexpr std::size_t bytes_of_row = hardcopy_width / 8;
inline constexpr std::size_t bytes_of_hardcopy = bytes_of_row * hardcopy_height;

struct Hardcopy {
  std::string date_line;            // as it stands in the file
  std::vector<std::uint8_t> bytes;  // row by row from the top; fewer than 3840 when numbers are missing

  // Whether the dot is black; the upper left one is (0, 0). The lowest bit of a byte is its leftmost dot.
  bool dot(std::size_t x, std::size_t y) const;

  std::size_t missing_bytes() const { return bytes_of_hardcopy - bytes.size(); }
};

struct HardcopyFile {
  std::vector<Hardcopy> pictures;  // oldest first; one at least unless the file could not be read at all
  FileFailure failure = FileFailure::none;
};

// "2009-05-12 15:30:00": only digits and signs of a date and a time, with a colon between two digits. No
// line of numbers has a colon.
bool is_date_line(std::string_view line);

// Numbers are separated by commas, blanks or line ends. Those above 256 are skipped; of the others, also
// negative ones, the low 8 bits count. A text that is no number counts as 0, so that the dots behind it keep
// their places. Numbers behind a whole picture are ignored, and what lies behind the first 16 MiB.
HardcopyFile read_hardcopies(Files& files, const std::string& path);

// With the date line as its title.
DotPicture dot_picture(const Hardcopy& picture);

// For the line under a picture, `index` from 0: "Picture 2 of 3", "900 of 3840 bytes are missing", whether the
// file could be read to its end. Empty for a whole picture that is the only one.
std::string hardcopy_hint(const HardcopyFile& file, std::size_t index, Language language);

}  // namespace halden
