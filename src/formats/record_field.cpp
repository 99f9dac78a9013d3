#include "formats/record_field.h"

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::size_t lost_line_length = 143;
constexpr std::string_view lost_line_text = "NO COM, DATA LOST, !, !,!,!,!,!,!,!";

}  // namespace

std::string record_field(std::string_view text) {
  if (text.size() > field_text_length) text.remove_prefix(text.size() - field_text_length);
  std::string field(field_text_length - text.size(), ' ');
  field += text;
  field += ',';
  return field;
}

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool loses_sign(std::string_view text) { return text.size() > field_text_length && text[0] == '-'; }

std::string record_date(const Date& date) {
  return format_pattern(date.month, "00") + "-" + format_pattern(date.day, "00") + "-" +
         format_pattern(date.year, "0000");
}

std::string no_communication_line(const Date& date, std::string_view clock_text) {
  std::string line = record_field(record_date(date));
  line += clock_text;
  line += ", ";
  line += lost_line_text;
  line.resize(lost_line_length, ' ');
  return line;
}

bool is_no_communication_line(std::string_view line) {
  return line.find(lost_line_text) != std::string_view::npos;
}

std::string numbered_names(std::string_view separator, int count) {
  std::string names;
  for (int number = 0; number < count; ++number) {
    names += separator;
    names += std::to_string(number);
  }
  return names;
}

}  // namespace halden
