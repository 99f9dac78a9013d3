// The lines of a text file from any position on. The file is read in pieces, so that one of any length takes
// little memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace halden {

struct FileLine {
  std::uint64_t start = 0;  // its first byte in the file, counted from 0
  std::string_view bytes;   // without CR LF or LF, and without a byte order mark at the start of the file
};

class LineReader {
 public:
  // A longer line comes in parts of this many bytes, each like a line: a file without line ends must not
  // fill the memory.
  static constexpr std::size_t longest_line = std::size_t{256} * 1024;

  // `files` outlives the reader.
  LineReader(Files& files, std::string path, std::uint64_t start = 0)
      : files_(files), path_(std::move(path)), piece_start_(start) {}

  // Nothing at the end of the file, and after a failure. The last line may lack its line end. The bytes are
  // valid until the next call.
  std::optional<FileLine> next();

  // Why there are no more lines; `none` at the end of the file.
  FileFailure failure() const { return failure_; }

 private:
  void read_piece();

  Files& files_;
  std::string path_;
  std::string piece_;
  std::size_t at_ = 0;             // in the piece
  std::uint64_t piece_start_ = 0;  // in the file
  bool is_last_piece_ = false;
  FileFailure failure_ = FileFailure::none;
};

}  // namespace halden
