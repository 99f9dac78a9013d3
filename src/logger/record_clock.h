// Date and time of the records of a stored file. The meter sends the start and the interval only; the clock
// counts on from there as the meter's own does, across midnight, months and years.
#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

// A year that is divisible by four has a 29 February: the meter's calendar knows no other rule.
int last_day_of_month(int year, int month);

class RecordClock {
 public:
  // The start as "2024-02-28" and "23:59:58"; month, day and the parts of the time may have one digit. If
  // either is no date or no time, the clock is not set and both texts stay blank: half a time stamp would be
  // taken for a whole one.
  RecordClock(std::string_view date, std::string_view time);

  bool is_set() const { return start_found_; }

  // "yyyy-mm-dd" and "hh:mm:ss".
  std::string date_text() const;
  std::string time_text() const;

  // A negative interval, which only a corrupt status holds, moves nothing.
  void advance_record_time(int interval_s);

 private:
  void next_day();

  bool start_found_ = false;
  Date date_;
  int seconds_ = 0;  // since midnight
};

}  // namespace halden
