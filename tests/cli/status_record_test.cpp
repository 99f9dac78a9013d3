#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/status_command.h"

namespace halden {
namespace {

// 35 fields with a value of its own in each that is printed.
TEST(StatusRecord, EveryValueUnderItsNameInTheOrderOfTheReply) {
  MeterStatus status;
  ASSERT_TRUE(read_status_reply(
      "E00000 00005 00002 00001 00000 00004 00300 00010 00000 00007 00000 00015 00001 00003 00001 00002 "
      "00383 00022 00033 00060 16384 00000 00000 00003 00000 00000 01536 00026 00026 00011 00022 00009 "
      "00030 00007 00012 ",
      status));
  EXPECT_EQ(formatted(status_record(status), Format::text),
            "meter_mode=0\nharmonic_channel=5\nwiring_system=2\nfrequency_code=1\npt_ratio=4\n"
            "ct_ratio=300\nsample_seconds=10\nharmonic_order=7\nmd_period=15\nlogger_data_type=1\n"
            "logger_channel=3\nlogger_system=1\nlogger_frequency_code=2\nlogger_current_range=1\n"
            "logger_pt_ratio=22\nlogger_ct_ratio=33\nlogger_sample_seconds=60\n"
            "logger_clamp_flags=16384\ncurrent_range=3\nmeter_flags_27=1536\ncurrent_scale=1.2\n"
            "logger_file_index=26\nlogger_file_index_text=26\nmeter_year=2026\nmeter_month=11\n"
            "meter_day=22\nmeter_hour=09\nmeter_minute=30\nmeter_second=07\nlogger_file_count=12\n");
}

// A disturbed line can put any byte into the clock's texts.
TEST(StatusRecord, BytesThatAreNoTextDoNotStopIt) {
  MeterStatus status;
  status.meter_day = std::string("\xFF\xC3");
  status.meter_hour = std::string("\"\x01");
  const std::string line = formatted(status_record(status), Format::json);
  EXPECT_NE(line.find("\"meter_day\":\"\xEF\xBF\xBD\xEF\xBF\xBD\""), std::string::npos) << line;
  EXPECT_NE(line.find("\"meter_hour\":\"\\\"\\u0001\""), std::string::npos) << line;
}

}  // namespace
}  // namespace halden
