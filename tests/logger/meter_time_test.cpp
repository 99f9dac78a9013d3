#include "logger/meter_time.h"

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

TEST(MeterTime, DaysAreCarriedThroughMonthsAndYears) {
  const auto after = [](const MeterTime& start, std::string_view elapsed) {
    const MeterTime time = time_after(start, elapsed_seconds(elapsed).value_or(-1));
    return date_text(time) + " " + second_text(time);
  };
  EXPECT_EQ(after({{2008, 2, 28}, 23, 59, 7}, "00:00:01"), "2008-02-29 00:00:07");
  EXPECT_EQ(after({{2008, 2, 28}, 23, 59, 7}, " 1: 0: 1"), "2008-03-01 00:00:07");
  EXPECT_EQ(after({{2009, 12, 31}, 0, 0, 0}, "62:24:60"), "2010-03-04 01:00:00");
  EXPECT_FALSE(elapsed_seconds("00-00:01") || elapsed_seconds("0 :00:01") || elapsed_seconds("00:00:1"));
  EXPECT_TRUE(exists({{2008, 2, 29}, 23, 59, 59}));
  EXPECT_FALSE(exists({{2009, 2, 29}, 0, 0, 0}) || exists({{2009, 4, 31}, 0, 0, 0}) ||
               exists({{2009, 4, 0}, 0, 0, 0}) || exists({{2009, 4, 1}, 24, 0, 0}) ||
               exists({{2009, 4, 1}, 0, 60, 0}) || exists({{2009, 4, 1}, 0, 0, 60}));
}

}  // namespace
}  // namespace halden
