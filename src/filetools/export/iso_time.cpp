#include "filetools/export/iso_time.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>

namespace halden {

namespace {

constexpr std::size_t year_length = 4;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The three groups of digits of a date with any one character between them; empty for any other text.
std::array<std::string_view, 3> parts_of(std::string_view date) {
  std::array<std::string_view, 3> parts;
  for (std::size_t part = 0; part < parts.size(); ++part) {
    std::size_t length = 0;
    while (length < date.size() && is_digit(date[length])) ++length;
    parts[part] = date.substr(0, length);
    const bool is_last = part + 1 == parts.size();
    if (length == 0 || length > year_length || is_last != (length == date.size())) return {};
    date.remove_prefix(is_last ? length : length + 1);
  }
  return parts;
}

std::string_view padded(std::string_view part, std::array<char, 2>& room) {
  if (part.size() == 2) return part;
  room = {'0', part[0]};
  return {room.data(), room.size()};
}

int number_of(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

std::string iso_date(std::string_view year, std::string_view month, std::string_view day) {
  if (year.size() != year_length || month.size() > 2 || day.size() > 2) return {};
  const std::chrono::year_month_day exists(std::chrono::year(number_of(year)),
                                           std::chrono::month(static_cast<unsigned>(number_of(month))),
                                           std::chrono::day(static_cast<unsigned>(number_of(day))));
  if (!exists.ok()) return {};
  std::array<char, 2> of_month, of_day;
  return std::string(year)
      .append("-")
      .append(padded(month, of_month))
      .append("-")
      .append(padded(day, of_day));
}

std::string iso_date(std::string_view date, DateOrder order) {
  const auto [first, second, third] = parts_of(date);
  if (first.size() == year_length) return iso_date(first, second, third);
  if (order == DateOrder::month_day_year) return iso_date(third, first, second);
  if (order == DateOrder::day_month_year) return iso_date(third, second, first);
  return {};
}

// "12:30:44" or "12:30"
bool is_time(std::string_view text) {
  constexpr std::string_view pattern = "00:00:00";
  if (text.size() != 5 && text.size() != pattern.size()) return false;
  for (std::size_t at = 0; at < text.size(); ++at)
    if (pattern[at] == '0' ? !is_digit(text[at]) : text[at] != pattern[at]) return false;
  return text < "24" && text[3] < '6' && (text.size() == 5 || text[6] < '6');
}

}  // namespace

std::string_view IsoTime::of(std::string_view date, std::string_view time) {
  if (date != date_) {
    date_ = date;
    iso_date_ = iso_date(date, order_);
  }
  if (iso_date_.empty() || !is_time(time)) return {};
  return text_.assign(iso_date_).append("T").append(time);
}

}  // namespace halden
