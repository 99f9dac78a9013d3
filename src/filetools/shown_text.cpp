#include "filetools/shown_text.h"

#include <algorithm>

namespace halden {

namespace {

constexpr std::string_view replacement = "\uFFFD";

bool is_control(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }
bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// Without an early end, so that the compiler looks at many bytes at once: nearly all lines are plain.
bool is_plain(std::string_view bytes) {
  unsigned others = 0;
  for (const char byte : bytes) others |= static_cast<unsigned char>(byte - 0x20) > 0x5E ? 1U : 0U;
  return others == 0;
}

// Forms longer than necessary, halves of surrogate pairs, and what lies beyond U+10FFFF.
bool is_forbidden(unsigned char lead, unsigned char second) {
  return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
         (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
}

// How many bytes the character at the start has; 0 when it is not valid UTF-8.
std::size_t bytes_of_first(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return 0;
  if (is_forbidden(lead, static_cast<unsigned char>(bytes[1]))) return 0;
  return std::all_of(bytes.begin() + 1, bytes.begin() + static_cast<std::ptrdiff_t>(length), continues)
             ? length
             : 0;
}

}  // namespace

std::string shown_text(std::string_view bytes) {
  if (is_plain(bytes)) return std::string(bytes);
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = bytes_of_first(bytes);
    if (length == 0)
      text += replacement;
    else if (is_control(static_cast<unsigned char>(bytes[0])))
      text += ' ';
    else
      text += bytes.substr(0, length);
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return text;
}

std::size_t characters_in(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), continues));
}

std::string_view behind_characters(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) {
    ++at;
    while (at < text.size() && continues(text[at])) ++at;
  }
  return text.substr(at);
}

}  // namespace halden
