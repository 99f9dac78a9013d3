#include "screen/language.h"

namespace halden {

std::string Text::with(Language language, std::initializer_list<std::string_view> values) const {
  constexpr std::string_view gap = "{}";
  std::string filled;
  std::string_view rest = in(language);
  for (const std::string_view value : values) {
    const std::size_t at = rest.find(gap);
    if (at == std::string_view::npos) break;
    filled.append(rest.substr(0, at)).append(value);
    rest.remove_prefix(at + gap.size());
  }
  return filled.append(rest);
}

}  // namespace halden
