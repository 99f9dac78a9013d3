#include "logger/word_file.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "formats/record_field.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::size_t piece_length = 64 * 1024;
constexpr int digits = 5;
constexpr std::size_t longest_word = 1 + digits;

std::int16_t word_of(char high, char low) {
  return static_cast<std::int16_t>(static_cast<unsigned char>(high) << 8U | static_cast<unsigned char>(low));
}

std::optional<std::int16_t> read_word(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (line.size() > longest_word) return {};
  std::int16_t word = 0;
  const char* const end = line.data() + line.size();
  const auto [read_to, error] = std::from_chars(line.data(), end, word);
  if (error != std::errc() || read_to != end) return {};
  return word;
}

}  // namespace

std::string word_lines(std::string_view bytes) {
  std::string lines;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
    lines += counts_text(word_of(bytes[at], bytes[at + 1]), digits, 0, line_end);
  return lines;
}

std::optional<std::int16_t> WordReader::next() {
  if (failure_ != FileFailure::none) return {};
  const std::optional<std::string_view> line = next_line();
  if (!line) return {};
  const std::optional<std::int16_t> word = read_word(*line);
  if (!word) failure_ = FileFailure::failed;
  return word;
}

// Up to its line feed, which only the last line of the file may lack.
std::optional<std::string_view> WordReader::next_line() {
  std::size_t end = piece_.find('\n', at_);
  if (end == std::string::npos) {
    read_piece();
    end = piece_.find('\n');
  }
  if (at_ == piece_.size()) return {};
  const std::string_view line = std::string_view(piece_).substr(at_, end - at_);
  at_ = std::min(at_ + line.size() + 1, piece_.size());
  return line;
}

// From the first byte that is not used up.
void WordReader::read_piece() {
  piece_offset_ += at_;
  at_ = 0;
  FilePiece read = files_.read(path_, piece_offset_, piece_length);
  failure_ = read.failure;
  piece_ = std::move(read.bytes);
}

}  // namespace halden
