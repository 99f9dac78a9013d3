#include "logger/meter_time.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr int months = 12;
constexpr int hours_per_day = 24;
constexpr int minutes_per_hour = 60;
constexpr int seconds_per_minute = 60;

constexpr std::size_t year_digits = 4;
constexpr std::size_t elapsed_length = 8;

int last_day(const Date& date) {
  constexpr std::array<int, months> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (date.month == 2 && date.year % 4 == 0) return 29;
  return days[static_cast<std::size_t>(date.month - 1)];
}

void advance_days(Date& date, int days) {
  date.day += days;
  while (date.day > last_day(date)) {
    date.day -= last_day(date);
    if (++date.month <= months) continue;
    date.month = 1;
    ++date.year;
  }
}

// Adds to a part of the time and returns the carry to the next larger one.
int carry(int& part, int added, int parts_of_next) {
  part += added;
  const int carried = part / parts_of_next;
  part %= parts_of_next;
  return carried;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_within(int value, int first, int last) { return value >= first && value <= last; }

std::optional<int> whole_number(std::string_view text, std::size_t most_digits) {
  if (text.empty() || text.size() > most_digits || !std::all_of(text.begin(), text.end(), is_digit))
    return {};
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// Three numbers, the second and the third with at most two digits.
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

std::optional<int> two_places(std::string_view text) {
  return whole_number(text[0] == ' ' ? text.substr(1) : text, 2);
}

std::string two_digits(int number) { return format_pattern(number, "00"); }

}  // namespace

bool exists(const MeterTime& time) {
  return is_within(time.date.year, 0, 9999) && is_within(time.date.month, 1, months) &&
         is_within(time.date.day, 1, last_day(time.date)) && is_within(time.hour, 0, hours_per_day - 1) &&
         is_within(time.minute, 0, minutes_per_hour - 1) && is_within(time.second, 0, seconds_per_minute - 1);
}

MeterTime time_after(MeterTime start, int seconds) {
  const int minutes = carry(start.second, seconds, seconds_per_minute);
  const int hours = carry(start.minute, minutes, minutes_per_hour);
  advance_days(start.date, carry(start.hour, hours, hours_per_day));
  return start;
}

std::optional<MeterTime> meter_time_of(std::string_view date, std::string_view time) {
  if (date.find('-') != year_digits) return {};  // a year of two digits could be of any century
  const auto date_parts = three_numbers(date, '-', year_digits);
  const auto time_parts = three_numbers(time, ':', 2);
  if (!date_parts || !time_parts) return {};
  const auto [year, month, day] = *date_parts;
  const auto [hour, minute, second] = *time_parts;
  const MeterTime read = {{year, month, day}, hour, minute, second};
  return exists(read) ? std::optional(read) : std::nullopt;
}

std::optional<int> elapsed_seconds(std::string_view elapsed) {
  if (elapsed.size() != elapsed_length || elapsed[2] != ':' || elapsed[5] != ':') return {};
  const std::optional<int> days = two_places(elapsed.substr(0, 2));
  const std::optional<int> hours = two_places(elapsed.substr(3, 2));
  const std::optional<int> minutes = two_places(elapsed.substr(6, 2));
  if (!days || !hours || !minutes) return {};
  return ((*days * hours_per_day + *hours) * minutes_per_hour + *minutes) * seconds_per_minute;
}

std::string date_text(const MeterTime& time) {
  const Date& date = time.date;
  return format_pattern(date.year, "0000") + "-" + two_digits(date.month) + "-" + two_digits(date.day);
}

std::string minute_text(const MeterTime& time) {
  return two_digits(time.hour) + ":" + two_digits(time.minute);
}

std::string second_text(const MeterTime& time) { return minute_text(time) + ":" + two_digits(time.second); }

void RecordClock::advance_record_time(int interval_s) {
  if (time_) time_ = time_after(*time_, std::max(interval_s, 0));
}

}  // namespace halden
