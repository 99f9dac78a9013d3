#include "logger/record_clock.h"

#include <gtest/gtest.h>

#include <string>

namespace halden {
namespace {

TEST(RecordClock, CountsAcrossMidnightMonthsAndYears) {
  const struct {
    const char *date, *time;
    int interval_s;
    const char* next;
  } cases[] = {{"2024-02-28", "23:59:58", 2, "2024-02-29 00:00:00"},
               {"2023-02-28", "23:59:58", 2, "2023-03-01 00:00:00"},
               {"2100-02-28", "23:59:58", 2, "2100-02-29 00:00:00"},
               {"2024-04-30", "22:00:00", 32767, "2024-05-01 07:06:07"},
               {"2023-12-31", "23:59:59", 1, "2024-01-01 00:00:00"},
               {"2024-3-5", "1:2:3", 0, "2024-03-05 01:02:03"},
               {"2024-03-05", "00:00:03", -5, "2024-03-05 00:00:03"}};
  for (const auto& c : cases) {
    RecordClock clock(c.date, c.time);
    clock.advance_record_time(c.interval_s);
    EXPECT_EQ(clock.date_text() + ' ' + clock.time_text(), c.next);
  }
}

TEST(RecordClock, AnInvalidStartLeavesBothTextsBlank) {
  for (const std::string start : {"2023-02-29 12:00:00", "0000-00-00 00:00:00", "2024-13-01 12:00:00",
                                  "24-02-28 12:00:00", "2024-02 12:00:00", "2024-02-28 24:00:00",
                                  "2024-02-28 12:60:00", "2024-02-28 12:00:-1", "2024-02-28 "}) {
    RecordClock clock(start.substr(0, start.find(' ')), start.substr(start.find(' ') + 1));
    clock.advance_record_time(2);
    EXPECT_EQ(clock.date_text() + clock.time_text(), "") << start;
  }
}

}  // namespace
}  // namespace halden
