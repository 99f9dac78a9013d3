// A part of a text file that the viewer's list shows at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "screen/window.h"

namespace halden {

// A block ends before whatever would exceed one of these. Lines of a power file never reach the second one.
inline constexpr std::size_t lines_of_block = 32767;
inline constexpr std::size_t bytes_of_block = std::size_t{16} << 20;

struct LineBlock {
  Lines lines;                              // whole, as they can be shown
  std::vector<std::uint64_t> starts;        // of each line, in bytes from 0
  std::size_t longest_line = 0;             // in characters
  std::optional<std::uint64_t> next_start;  // of the next block; nothing when the file ends with this one
  FileFailure failure = FileFailure::none;  // the lines may not be all then
};

// From this position on, which is the start of a line. A position behind the end gives no lines.
LineBlock read_block(Files& files, const std::string& path, std::uint64_t start);

}  // namespace halden
