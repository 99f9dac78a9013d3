// The two languages of the program, and a text in both.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace halden {

enum class Language : std::int16_t { english = 0, chinese = 1 };  // Traditional Chinese

struct Text {
  std::string_view english;
  std::string_view chinese;

  std::string_view in(Language language) const { return language == Language::chinese ? chinese : english; }

  // The same with each "{}" replaced by the next of the values.
  std::string with(Language language, std::initializer_list<std::string_view> values) const;
};

}  // namespace halden
