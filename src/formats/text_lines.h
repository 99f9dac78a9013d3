// The lines of a text file of any length, one after the other. The memory it takes does not depend on the
// file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace halden {

class TextLines {
 public:
  // A longer line is cut to this many bytes: a file without line ends must not fill the memory.
  static constexpr std::size_t longest_line = std::size_t{64} << 10;

  explicit TextLines(std::unique_ptr<FileReader> file);

  // The next line without its line end (CR LF or LF) and without a byte order mark; false behind the last
  // one. The line is valid until the next call. What is appended to the file after it was opened is not read.
  bool next(std::string_view& line) {
    const char* const line_end = find_line_end();
    if (line_end == nullptr) return next_across_pieces(line);
    line = without_return({at_, line_end});
    at_ = line_end + 1;
    return true;
  }

  // In bytes: of the file, and up to the end of the last line returned.
  std::uint64_t length() const { return length_; }
  std::uint64_t position() const { return bytes_read_ - static_cast<std::uint64_t>(end_ - at_); }

  // The file could not be read to its end.
  bool failed() const { return failed_; }

 private:
  static std::string_view without_return(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  const char* find_line_end() const {
    return static_cast<const char*>(std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_)));
  }

  bool next_across_pieces(std::string_view& line);
  bool read_piece();
  void skip_line();
  void skip_byte_order_mark();

  std::unique_ptr<FileReader> file_;
  std::uint64_t length_;
  std::uint64_t bytes_read_ = 0;
  bool failed_ = false;
  std::string cut_line_;
  // The start of a line that continues in the next piece is moved to directly before that piece.
  std::unique_ptr<char[]> buffer_;
  const char* at_;
  const char* end_;
};

}  // namespace halden
