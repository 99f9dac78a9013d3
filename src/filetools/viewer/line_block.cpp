#include "filetools/viewer/line_block.h"

#include <algorithm>
#include <utility>

#include "filetools/line_reader.h"
#include "filetools/shown_text.h"

namespace halden {

namespace {

bool takes(const LineBlock& block, std::size_t bytes) {
  return block.lines.size() < lines_of_block && (block.lines.empty() || bytes <= bytes_of_block);
}

void add(LineBlock& block, const FileLine& line) {
  std::string text = shown_text(line.bytes);
  block.longest_line = std::max(block.longest_line, characters_in(text));
  block.lines.push_back(std::move(text));
  block.starts.push_back(line.start);
}

}  // namespace

LineBlock read_block(Files& files, const std::string& path, std::uint64_t start) {
  LineBlock block;
  LineReader reader(files, path, start);
  std::size_t bytes = 0;
  while (const auto line = reader.next()) {
    bytes += line->bytes.size();
    if (!takes(block, bytes)) {
      block.next_start = line->start;
      break;
    }
    add(block, *line);
  }
  block.failure = reader.failure();
  return block;
}

}  // namespace halden
