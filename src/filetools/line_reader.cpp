#include "filetools/line_reader.h"

#include <algorithm>

namespace halden {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

}  // namespace

std::optional<FileLine> LineReader::next() {
  std::size_t end = piece_.find('\n', at_);
  if (end == std::string::npos && !is_last_piece_) {
    read_piece();
    end = piece_.find('\n');
  }
  if (at_ == piece_.size()) return {};
  FileLine line{piece_start_ + at_, std::string_view(piece_).substr(at_, end - at_)};
  at_ = std::min(at_ + line.bytes.size() + 1, piece_.size());
  if (line.bytes.ends_with('\r')) line.bytes.remove_suffix(1);
  if (line.start == 0 && line.bytes.starts_with(byte_order_mark))
    line.bytes.remove_prefix(byte_order_mark.size());
  return line;
}

// From the first byte that is not used up: the beginning of a line that did not end in the piece is read
// again with the rest of it.
void LineReader::read_piece() {
  piece_start_ += at_;
  at_ = 0;
  FilePiece read = files_.read(path_, piece_start_, longest_line);
  failure_ = read.failure;
  piece_ = std::move(read.bytes);
  is_last_piece_ = piece_.size() < longest_line;
}

}  // namespace halden
