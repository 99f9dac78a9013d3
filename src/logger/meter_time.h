// Dates and times as the meter's clock counts them: of the records of a stored file, for which the meter
// sends the start and the interval only, and of transient events. Every year that is divisible by 4 is a leap
// year: the meter knows no exception for full centuries.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

struct MeterTime {
  Date date;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Whether there is such a date and such a time.
bool exists(const MeterTime& time);

// `start` exists; `seconds` is 0 or more.
MeterTime time_after(MeterTime start, int seconds);

// Of "2024-02-28" and "23:59:58"; month, day and the parts of the time may have one digit. Nothing when
// either is no date or no time.
std::optional<MeterTime> meter_time_of(std::string_view date, std::string_view time);

// Of "dd:hh:mm", where a blank may stand for a leading zero; nothing for any other text.
std::optional<int> elapsed_seconds(std::string_view elapsed);

// "2009-02-28"
std::string date_text(const MeterTime& time);

// "23:50", and with seconds "23:50:10"
std::string minute_text(const MeterTime& time);
std::string second_text(const MeterTime& time);

// Date and time of the record that comes next.
class RecordClock {
 public:
  // When the start is no date or no time, the clock is not set and both texts stay blank: half a time stamp
  // would be taken for a whole one.
  RecordClock(std::string_view start_date, std::string_view start_time)
      : time_(meter_time_of(start_date, start_time)) {}

  bool is_set() const { return time_.has_value(); }

  std::string date_text() const { return time_ ? halden::date_text(*time_) : std::string(); }
  std::string time_text() const { return time_ ? second_text(*time_) : std::string(); }

  // An interval below 0 moves nothing.
  void advance_record_time(int interval_s);

 private:
  std::optional<MeterTime> time_;
};

}  // namespace halden
