#include "logger/event_time.h"

#include <array>
#include <cstddef>

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr int months = 12;
constexpr int hours_per_day = 24;
constexpr int minutes_per_hour = 60;
constexpr int seconds_per_minute = 60;

constexpr std::size_t elapsed_length = 8;

// As the meter's clock has it, which knows no exception for full centuries.
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

std::optional<int> two_digits(std::string_view text) {
  const char tens = text[0] == ' ' ? '0' : text[0];
  for (const char digit : {tens, text[1]})
    if (digit < '0' || digit > '9') return std::nullopt;
  return (tens - '0') * 10 + (text[1] - '0');
}

bool is_within(int value, int first, int last) { return value >= first && value <= last; }

}  // namespace

bool exists(const EventTime& time) {
  return is_within(time.date.year, 0, 9999) && is_within(time.date.month, 1, months) &&
         is_within(time.date.day, 1, last_day(time.date)) && is_within(time.hour, 0, hours_per_day - 1) &&
         is_within(time.minute, 0, minutes_per_hour - 1) && is_within(time.second, 0, seconds_per_minute - 1);
}

std::optional<int> elapsed_minutes(std::string_view elapsed) {
  if (elapsed.size() != elapsed_length || elapsed[2] != ':' || elapsed[5] != ':') return std::nullopt;
  const std::optional<int> days = two_digits(elapsed.substr(0, 2));
  const std::optional<int> hours = two_digits(elapsed.substr(3, 2));
  const std::optional<int> minutes = two_digits(elapsed.substr(6, 2));
  if (!days || !hours || !minutes) return std::nullopt;
  return (*days * hours_per_day + *hours) * minutes_per_hour + *minutes;
}

EventTime time_after(EventTime start, int minutes) {
  const int total_minutes = start.minute + minutes;
  const int total_hours = start.hour + total_minutes / minutes_per_hour;
  start.minute = total_minutes % minutes_per_hour;
  start.hour = total_hours % hours_per_day;
  advance_days(start.date, total_hours / hours_per_day);
  return start;
}

std::string date_text(const EventTime& time) {
  return format_pattern(time.date.year, "0000") + "-" + format_pattern(time.date.month, "00") + "-" +
         format_pattern(time.date.day, "00");
}

std::string minute_text(const EventTime& time) {
  return format_pattern(time.hour, "00") + ":" + format_pattern(time.minute, "00");
}

std::string second_text(const EventTime& time) {
  return minute_text(time) + ":" + format_pattern(time.second, "00");
}

}  // namespace halden
