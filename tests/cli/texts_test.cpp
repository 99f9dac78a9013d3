// What is typed and what is printed.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/live_command.h"
#include "cli/plot_command.h"
#include "cli/plot_options.h"
#include "cli/port_argument.h"
#include "cli/set_command.h"
#include "cli/status_command.h"
#include "filetools/power_plot/points_csv.h"
#include "formats/record_field.h"
#include "platform/virtual/virtual_files.h"
#include "platform/virtual/virtual_world.h"

namespace halden {
namespace {

TEST(PortArgument, NumbersDevicesTheDemoAndNothingElse) {
  const std::tuple<const char*, bool, int, const char*> rows[] = {
      {"1", false, 1, ""},
      {"16", false, 16, ""},
      {"demo", true, 1, ""},
      {"/dev/ttyUSB3", false, 1, "/dev/ttyUSB3"},
      {"links/the meter", false, 1, "links/the meter"}};
  for (const auto& [text, simulated, number, device] : rows) {
    const auto port = parse_port_argument(text);
    ASSERT_TRUE(port) << text;
    EXPECT_EQ(port->simulated, simulated) << text;
    EXPECT_EQ(port->number, number) << text;
    EXPECT_EQ(port->device, device) << text;
  }
  for (const char* text : {"", "0", "17", "-1", "1 ", " 1", "1x", "ttyUSB0", "Demo", "99999999999"})
    EXPECT_FALSE(parse_port_argument(text)) << text;
}

TEST(PointsCommand, OneLineAPointOrOneSentence) {
  const auto record = [](std::string_view time, std::string_view v1) {
    std::string line = record_field("03-15-2024") + record_field(time) + record_field(v1);
    for (int field = 3; field < 17; ++field) line += record_field("1.250KW");
    return line + "\n";
  };
  VirtualFiles files;
  files.contents["f"] = "1P2W,Hz=60\nnames\n" + record("12:30:44", "230.1V") + "foreign\n" +
                        record("12:30:48", "0.231KV") + record("12:30:50", "229.9V");
  const std::string head = "first_record,last_record,date,time,maximum,minimum,readings,unit\n";
  const PlaceRange rest = {RecordPlace{2, {}, {}}, read_record_place("12:30:49")};
  const std::tuple<PlotOptions, std::string> rows[] = {
      {{"f", "", {}},
       "1,1,03-15-2024,12:30:44,230.1,230.1,1,V\n2,2,,,0,0,0,V\n"
       "3,3,03-15-2024,12:30:48,231,231,1,V\n4,4,03-15-2024,12:30:50,229.9,229.9,1,V\n"},
      {{"f", "V1", rest}, "2,2,,,0,0,0,KV\n3,3,03-15-2024,12:30:48,0.231,0.231,1,KV\n"},
      {{"f", "P_SYS", rest, MissingReadings::left_out},
       "2,2,,,,,0,KW\n3,3,03-15-2024,12:30:48,1.25,1.25,1,KW\n"}};
  for (const auto& [options, lines] : rows) {
    const PlotResult result = read_plot(files, options);
    ASSERT_TRUE(result.plot) << result.failure;
    EXPECT_EQ(points_csv(*result.plot, options.missing), head + lines);
  }
  EXPECT_EQ(read_plot(files, {"f", "V2", {}}).failure, "The file has no column V2.");
  EXPECT_EQ(read_plot(files, {"g", "", {}}).failure, "File not found");
  EXPECT_EQ(read_plot(files, {"f", "", {RecordPlace{5, {}, {}}, {}}}).failure,
            "start record > total records");
}

TEST(PlotCommand, StatisticsHaveTheCaptionsOfTheMenu) {
  EXPECT_EQ(read_statistics("BestFit"), Statistics::best_fit);
  EXPECT_EQ(read_statistics("stddev-and-minmax-and-mean"), Statistics::deviation_min_max_and_mean);
  EXPECT_EQ(read_statistics("Mean_and MinMax"), Statistics::mean_and_min_max);
  EXPECT_FALSE(read_statistics("median") || read_statistics(""));
}

TEST(SetCommand, KnowsItsNames) {
  EXPECT_EQ(parse_setting("ct=40")->value, "40");
  EXPECT_EQ(parse_setting("hz=")->name, "hz");
  for (const char* wrong : {"ct", "CT=1", "kv=1", "=1", "ct=12345678901"})
    EXPECT_FALSE(parse_setting(wrong)) << wrong;
}

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

TEST(LivePhasors, AnglesAreThoseOfThePhasesInUse) {
  PhasorAngles angles;
  angles.v_phasor_angle = {0, -1200, 1199};
  angles.i_phasor_angle = {-155, -1350, 1050};
  angles.v12_phasor_angle = 300;
  angles.v23_phasor_angle = -900;
  angles.v31_phasor_angle = 1501;
  const auto shown = [&angles](Wiring wiring_system) {
    Record record;
    add_phasor_angles(angles, wiring_system, record);
    return record.dump();
  };
  EXPECT_EQ(shown(Wiring::w1p2w), R"({"v1_phasor_angle":"0.0","i1_phasor_angle":"-15.5"})");
  EXPECT_EQ(shown(Wiring::w3p4w),
            R"({"v1_phasor_angle":"0.0","i1_phasor_angle":"-15.5","v2_phasor_angle":"-120.0",)"
            R"("i2_phasor_angle":"-135.0","v3_phasor_angle":"119.9","i3_phasor_angle":"105.0",)"
            R"("v12_phasor_angle":"30.0","v23_phasor_angle":"-90.0","v31_phasor_angle":"150.1"})");
}

// A clock whose midnight passes between two questions.
struct MidnightClock : VirtualClock {
  using VirtualClock::VirtualClock;
  double seconds_since_midnight() const override {
    midnight_passed = true;
    return 0.25;
  }
  Date today() const override { return midnight_passed ? Date{2027, 1, 1} : Date{2026, 12, 31}; }
  mutable bool midnight_passed = false;
};

TEST(LocalTime, DateTimeAndMilliseconds) {
  VirtualWorld noon({2026, 11, 22}, 12 * 3600 + 30 * 60 + 44.25);
  EXPECT_EQ(local_time_text(noon.clock), "2026-11-22T12:30:44.250");
  const VirtualWorld morning({2027, 3, 4}, 5 * 3600 + 6 * 60 + 7.008);
  EXPECT_EQ(local_time_text(morning.clock), "2027-03-04T05:06:07.008");
  const VirtualWorld midnight({2026, 11, 22}, 86399.9999);
  EXPECT_EQ(local_time_text(midnight.clock), "2026-11-22T23:59:59.999");
  EXPECT_EQ(local_time_text(MidnightClock(noon)), "2027-01-01T00:00:00.250");
}

}  // namespace
}  // namespace halden
