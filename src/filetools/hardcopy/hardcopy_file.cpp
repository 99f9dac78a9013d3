#include "filetools/hardcopy/hardcopy_file.h"

#include <algorithm>
#include <string_view>

#include "filetools/line_reader.h"
#include "filetools/shown_text.h"
#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::uint64_t longest_file = std::uint64_t{16} << 20;  // some 600 pictures
constexpr std::string_view separators = ", \t\r\v\f";
constexpr double largest_number = 256;
constexpr double lowest_word = -32768;  // counts for anything below it, too

constexpr Text which_picture = {"Picture {} of {}.", "第 {} 張，共 {} 張。"};
constexpr Text bytes_missing = {"{} of {} bytes are missing; they are left white.",
                                "缺少 {} 個位元組（共 {} 個），以空白表示。"};
constexpr Text not_to_its_end = {"The file could not be read to its end.", "檔案無法讀到結尾。"};

void add_number(Hardcopy& picture, std::string_view number) {
  const double value = leading_number(number);
  if (value > largest_number || picture.missing_bytes() == 0) return;
  const double word = round_half_even(std::max(value, lowest_word));
  picture.bytes.push_back(static_cast<std::uint8_t>(static_cast<int>(word) & 0xFF));
}

template <typename Use>
void for_each_word(std::string_view line, Use use) {
  std::size_t start = line.find_first_not_of(separators);
  while (start != std::string_view::npos) {
    const std::size_t end = std::min(line.find_first_of(separators, start), line.size());
    use(line.substr(start, end - start));
    start = line.find_first_not_of(separators, end);
  }
}

bool is_number(std::string_view text) {
  const std::string_view digits = text.substr(text.front() == '-' ? 1 : 0);
  return !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
}

// Also true of a line without anything.
bool has_numbers_only(std::string_view line) {
  bool numbers_only = true;
  for_each_word(line,
                [&numbers_only](std::string_view word) { numbers_only = numbers_only && is_number(word); });
  return numbers_only;
}

// The user may have typed another date than a download writes; within a picture such a line is a spoiled one.
bool begins_picture(std::string_view line, const Hardcopy& before) {
  return is_date_line(line) || (before.missing_bytes() == 0 && !has_numbers_only(line));
}

}  // namespace

bool is_date_line(std::string_view line) {
  if (line.find_first_not_of("0123456789-/.: ") != std::string_view::npos) return false;
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  const std::size_t colon = line.find(':');
  return colon != std::string_view::npos && colon > 0 && colon + 1 < line.size() &&
         is_digit(line[colon - 1]) && is_digit(line[colon + 1]);
}

bool Hardcopy::dot(std::size_t x, std::size_t y) const {
  const std::size_t at = y * bytes_of_row + x / 8;
  return x < hardcopy_width && at < bytes.size() && ((bytes[at] >> (x % 8)) & 1U) != 0;
}

HardcopyFile read_hardcopies(Files& files, const std::string& path) {
  HardcopyFile file;
  LineReader reader(files, path);
  for (auto line = reader.next(); line && line->start < longest_file; line = reader.next()) {
    if (file.pictures.empty() || begins_picture(line->bytes, file.pictures.back()))
      file.pictures.push_back({shown_text(line->bytes), {}});
    else
      for_each_word(line->bytes, [&file](std::string_view word) { add_number(file.pictures.back(), word); });
  }
  file.failure = reader.failure();
  if (file.pictures.empty() && file.failure == FileFailure::none) file.pictures.emplace_back();
  return file;
}

DotPicture dot_picture(const Hardcopy& picture) {
  DotPicture dots{picture.date_line, {hardcopy_height, std::string(hardcopy_width, ' ')}};
  for (std::size_t y = 0; y < hardcopy_height; ++y)
    for (std::size_t x = 0; x < hardcopy_width; ++x)
      if (picture.dot(x, y)) dots.rows[y][x] = '#';
  return dots;
}

std::string hardcopy_hint(const HardcopyFile& file, std::size_t index, Language language) {
  std::string hint;
  const auto add = [&hint](const std::string& sentence) { hint += (hint.empty() ? "" : " ") + sentence; };
  if (file.pictures.size() > 1)
    add(which_picture.with(language, {std::to_string(index + 1), std::to_string(file.pictures.size())}));
  if (const std::size_t missing = file.pictures[index].missing_bytes(); missing > 0)
    add(bytes_missing.with(language, {std::to_string(missing), std::to_string(bytes_of_hardcopy)}));
  if (file.failure != FileFailure::none) add(std::string(not_to_its_end.in(language)));
  return hint;
}

}  // namespace halden
