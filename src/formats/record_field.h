// The fields all data files are made of: eleven characters each, so that columns stay aligned in any editor.
//
//   "     230.1V,"   the text right-aligned in ten characters, then a comma
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

inline constexpr std::size_t field_text_length = 10;
inline constexpr std::string_view line_end = "\r\n";

// A text longer than ten characters keeps its last ten.
std::string record_field(std::string_view text);

// The text without the blanks around it.
std::string_view without_blanks(std::string_view text);

// Whether a field of this text loses its minus sign: "-0.045KVARH" has eleven characters.
bool loses_sign(std::string_view text);

// One line of a data file, without its line end.
struct RecordLine {
  std::string text;
  bool sign_cut = false;       // a field has lost its minus sign
  std::string_view refusal{};  // said to the user instead of recording the line
};

// "mm-dd-yyyy"
std::string record_date(const Date& date);

// The line written in place of a record while the meter does not answer: 143 characters.
//
//   03-15-2024,12:30:44, NO COM, DATA LOST, !, !,!,!,!,!,!,!
std::string no_communication_line(const Date& date, std::string_view clock_text);

bool is_no_communication_line(std::string_view line);

// The numbers 0, 1, ... count - 1 as texts, each after `separator`.
std::string numbered_names(std::string_view separator, int count);

}  // namespace halden
