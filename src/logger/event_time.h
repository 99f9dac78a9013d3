// When a transient event happened: the meter gives the start of the recording and the time elapsed since
// then.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

// A date and a time of day as the meter's clock counts them.
struct EventTime {
  Date date;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Whether there is such a date and such a time. Every year that is divisible by 4 is a leap year.
bool exists(const EventTime& time);

// Minutes of "dd:hh:mm", where a blank may stand for a leading zero; nothing for any other text.
std::optional<int> elapsed_minutes(std::string_view elapsed);

// `start` exists; `minutes` is 0 or more.
EventTime time_after(EventTime start, int minutes);

// "2009-02-28"
std::string date_text(const EventTime& time);

// "23:50", and with seconds "23:50:10"
std::string minute_text(const EventTime& time);
std::string second_text(const EventTime& time);

}  // namespace halden
