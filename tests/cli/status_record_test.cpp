#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/status_command.h"

namespace halden {
namespace {

// 35 fields with a value of its own in each that is printed.
constexpr const char* reply =
    "E00000 00005 00002 00001 00000 00004 00300 00010 00000 00007 00000 00015 00001 00003 00001 00002 00383 "
    "00022 00033 00060 16384 00000 00000 00003 00000 00000 01536 00026 00026 00011 00022 00009 00030 00007 "
    "00012 ";

TEST(StatusRecord, EveryValueUnderItsNameInTheOrderOfTheReply) {
  MeterStatus status;
  ASSERT_TRUE(read_status_reply(reply, status));
  EXPECT_EQ(formatted(status_record(status), Format::text),
            "meter_mode=0\n"
            "harmonic_channel=5\n"
            "wiring_system=2\n"
            "frequency_code=1\n"
            "pt_ratio=4\n"
            "ct_ratio=300\n"
            "sample_seconds=10\n"
            "harmonic_order=7\n"
            "md_period=15\n"
            "logger_data_type=1\n"
            "logger_channel=3\n"
            "logger_system=1\n"
            "logger_frequency_code=2\n"
            "logger_current_range=1\n"
            "logger_pt_ratio=22\n"
            "logger_ct_ratio=33\n"
            "logger_sample_seconds=60\n"
            "logger_clamp_flags=16384\n"
            "current_range=3\n"
            "meter_flags_27=1536\n"
            "current_scale=1.2\n"
            "logger_file_index=26\n"
            "logger_file_index_text=26\n"
            "meter_year=2026\n"
            "meter_month=11\n"
            "meter_day=22\n"
            "meter_hour=09\n"
            "meter_minute=30\n"
            "meter_second=07\n"
            "logger_file_count=12\n");
}

TEST(StatusRecord, JsonKeepsTextsAndNumbersApart) {
  MeterStatus status;
  ASSERT_TRUE(read_status_reply(reply, status));
  const std::string line = formatted(status_record(status), Format::json);
  EXPECT_EQ(line.substr(0, 37), "{\"meter_mode\":0,\"harmonic_channel\":5,");
  EXPECT_EQ(line.substr(line.size() - 24), "\"logger_file_count\":12}\n");
  for (const char* part : {"\"current_scale\":1.2,", "\"logger_file_index\":26,",
                           "\"logger_file_index_text\":\"26\",", "\"meter_hour\":\"09\","})
    EXPECT_NE(line.find(part), std::string::npos) << part;
}

TEST(StatusRecord, ClampFactorsAreWrittenAsTheyAreSpoken) {
  MeterStatus status;
  for (const auto& [factor, text] : {std::pair(1.0F, "1.0"), {1.2F, "1.2"}, {3.0F, "3.0"}}) {
    status.current_scale = factor;
    EXPECT_NE(
        formatted(status_record(status), Format::text).find(std::string("\ncurrent_scale=") + text + "\n"),
        std::string::npos)
        << text;
  }
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
