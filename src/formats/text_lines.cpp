#include "formats/text_lines.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace halden {

namespace {

// Small enough to stay in the processor's cache while its lines are looked at.
constexpr std::size_t piece_length = std::size_t{256} << 10;

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

}  // namespace

TextLines::TextLines(std::unique_ptr<FileReader> file)
    : file_(std::move(file)),
      length_(file_->length()),
      buffer_(new char[longest_line + piece_length]),
      at_(buffer_.get() + longest_line),
      end_(at_) {
  skip_byte_order_mark();
}

// `line` is the rest of the last piece, and what follows.
bool TextLines::next_across_pieces(std::string_view& line) {
  while (find_line_end() == nullptr) {
    if (end_ - at_ >= static_cast<std::ptrdiff_t>(longest_line)) {
      line = cut_line_.assign(at_, longest_line);
      skip_line();
      return true;
    }
    if (read_piece()) continue;
    line = without_return({at_, end_});
    return std::exchange(at_, end_) != end_;
  }
  return next(line);
}

// Keeps what has not been returned yet.
bool TextLines::read_piece() {
  const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(piece_length, length_ - bytes_read_));
  if (wanted == 0 || failed_) return false;
  char* const piece = buffer_.get() + longest_line;
  const auto rest = static_cast<std::size_t>(end_ - at_);
  std::memmove(piece - rest, at_, rest);
  const std::optional<std::size_t> got = file_->read(piece, wanted);
  failed_ = !got;
  at_ = piece - rest;
  end_ = piece + got.value_or(0);
  bytes_read_ += got.value_or(0);
  return got.value_or(0) > 0;
}

void TextLines::skip_line() {
  do {
    const char* const line_end = find_line_end();
    at_ = line_end == nullptr ? end_ : line_end + 1;
    if (line_end != nullptr) return;
  } while (read_piece());
}

void TextLines::skip_byte_order_mark() {
  if (read_piece() && std::string_view(at_, end_).starts_with(byte_order_mark)) at_ += byte_order_mark.size();
}

}  // namespace halden
