// The file between a transfer and its conversion: the received words as text, one a line, each ended by CR
// LF.
//
//   00230
//   -00002
//   32767
//
// On the line a word is two bytes, the high one first, and signed: FF FE is -2.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace halden {

// The lines of all words in received bytes; the last one of an odd number of bytes is left out.
std::string word_lines(std::string_view bytes);

// Reads in pieces, so that a file of any length needs little memory.
class WordReader {
 public:
  // `files` outlives the reader.
  WordReader(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  // Nothing at the end of the file, and after a failure.
  std::optional<std::int16_t> next();

  // Why there are no more words; `none` at the end of the file. A line that is no word is a failure.
  FileFailure failure() const { return failure_; }

 private:
  std::optional<std::string_view> next_line();
  void read_piece();

  Files& files_;
  std::string path_;
  std::string piece_;
  std::size_t at_ = 0;              // in the piece
  std::uint64_t piece_offset_ = 0;  // of the piece in the file
  FileFailure failure_ = FileFailure::none;
};

}  // namespace halden
