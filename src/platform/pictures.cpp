#include "platform/pictures.h"

#include <array>
#include <utility>

namespace halden {

namespace {

constexpr std::array endings = {std::pair{".png", PictureKind::png}, std::pair{".svg", PictureKind::svg},
                                std::pair{".pdf", PictureKind::pdf}};

std::string in_small_letters(std::string_view text) {
  std::string small(text);
  for (char& c : small)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return small;
}

}  // namespace

std::optional<PictureKind> picture_kind(std::string_view path) {
  const std::string small = in_small_letters(path);
  for (const auto& [ending, kind] : endings)
    if (small.ends_with(ending)) return kind;
  return std::nullopt;
}

}  // namespace halden
