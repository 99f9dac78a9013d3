#include "logger/record_clock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr int months_per_year = 12;
constexpr int hours_per_day = 24;
constexpr int seconds_per_minute = 60;
constexpr int seconds_per_hour = 60 * seconds_per_minute;
constexpr int seconds_per_day = hours_per_day * seconds_per_hour;
constexpr std::size_t year_digits = 4;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

std::optional<int> whole_number(std::string_view text, std::size_t most_digits) {
  if (text.empty() || text.size() > most_digits || !std::all_of(text.begin(), text.end(), is_digit))
    return {};
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// The three numbers of "2024-02-28" or "23:59:58", the second and the third with at most two digits.
std::optional<std::array<int, 3>> three_numbers(std::string_view text, char separator,
                                                std::size_t most_digits_of_first) {
  const std::size_t second = text.find(separator);
  if (second == std::string_view::npos) return {};
  const std::size_t third = text.find(separator, second + 1);
  if (third == std::string_view::npos) return {};
  const auto a = whole_number(text.substr(0, second), most_digits_of_first);
  const auto b = whole_number(text.substr(second + 1, third - second - 1), 2);
  const auto c = whole_number(text.substr(third + 1), 2);
  if (!a || !b || !c) return {};
  return std::array{*a, *b, *c};
}

std::optional<Date> date_of(std::string_view text) {
  // A year of two digits could be of any century.
  if (text.find('-') != year_digits) return {};
  const auto parts = three_numbers(text, '-', year_digits);
  if (!parts) return {};
  const auto [year, month, day] = *parts;
  if (month < 1 || month > months_per_year || day < 1 || day > last_day_of_month(year, month)) return {};
  return Date{year, month, day};
}

std::optional<int> seconds_of(std::string_view text) {
  const auto parts = three_numbers(text, ':', 2);
  if (!parts) return {};
  const auto [hours, minutes, seconds] = *parts;
  if (hours >= hours_per_day || minutes >= 60 || seconds >= 60) return {};
  return hours * seconds_per_hour + minutes * seconds_per_minute + seconds;
}

std::string three_texts(int first, std::string_view pattern_of_first, int second, int third, char separator) {
  std::string text = format_pattern(first, pattern_of_first);
  for (const int number : {second, third}) text.append(1, separator).append(format_pattern(number, "00"));
  return text;
}

}  // namespace

int last_day_of_month(int year, int month) {
  if (month == 2) return year % 4 == 0 ? 29 : 28;
  const bool short_month = month == 4 || month == 6 || month == 9 || month == 11;
  return short_month ? 30 : 31;
}

RecordClock::RecordClock(std::string_view date, std::string_view time) {
  const std::optional<Date> start_date = date_of(date);
  const std::optional<int> start_seconds = seconds_of(time);
  if (!start_date || !start_seconds) return;
  start_found_ = true;
  date_ = *start_date;
  seconds_ = *start_seconds;
}

std::string RecordClock::date_text() const {
  if (!start_found_) return {};
  return three_texts(date_.year, "0000", date_.month, date_.day, '-');
}

std::string RecordClock::time_text() const {
  if (!start_found_) return {};
  return three_texts(seconds_ / seconds_per_hour, "00", seconds_ / seconds_per_minute % 60,
                     seconds_ % seconds_per_minute, ':');
}

void RecordClock::advance_record_time(int interval_s) {
  seconds_ += std::max(interval_s, 0);
  for (; seconds_ >= seconds_per_day; seconds_ -= seconds_per_day) next_day();
}

void RecordClock::next_day() {
  if (++date_.day <= last_day_of_month(date_.year, date_.month)) return;
  date_.day = 1;
  if (++date_.month <= months_per_year) return;
  date_.month = 1;
  ++date_.year;
}

}  // namespace halden
