// haldenctl and the simulated meter, joined by a pseudo-terminal.
#include <signal.h>

#include <regex>

#include "meter_process.h"

namespace halden {
namespace {

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Status, PrintsWhatTheMeterSays) {
  MeterProcess meter({"--wiring", "3P3W", "--mode", "harmonics"});
  EXPECT_EQ(meter.command("channel 4"), "ok");
  const Ended ended = run_to_end({"haldenctl", "status", "--port", meter.port(), "--format", "json"});
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors, "");
  const std::regex expected(
      R"(\{"meter_mode":0,"harmonic_channel":4,"wiring_system":2,"frequency_code":1,"pt_ratio":1,"ct_ratio":1,)"
      R"("sample_seconds":2,"harmonic_order":1,"md_period":15,"logger_data_type":1,"logger_channel":0,)"
      R"("logger_system":3,"logger_frequency_code":1,"logger_current_range":1,"logger_pt_ratio":1,)"
      R"("logger_ct_ratio":1,"logger_sample_seconds":2,"logger_clamp_flags":0,"current_range":1,)"
      R"("meter_flags_27":0,"current_scale":1\.0,"logger_file_index":0,"logger_file_index_text":"00",)"
      R"("meter_year":"2\d{3}","meter_month":"\d\d","meter_day":"\d\d","meter_hour":"\d\d",)"
      R"("meter_minute":"\d\d","meter_second":"\d\d","logger_file_count":0\}\n)");
  EXPECT_TRUE(std::regex_match(ended.output, expected)) << ended.output;
  EXPECT_EQ(meter.command("log"), "2 \"? \"") << "one request, and one for the poll that follows it";
}

TEST(Status, ASilentMeterIsAFailure) {
  MeterProcess meter({"--fault", "silence"});
  const Ended ended = run_to_end({"haldenctl", "status", "--port", meter.port()});
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors,
            "Meter status could not be obtained, please check connections, com port, etc, and try again.\n");
}

TEST(Set, SendsOneCharacterAtATimeAndPrintsWhatTheMeterHolds) {
  MeterProcess meter;
  Process set({"haldenctl", "set", "--port", meter.port(), "ct=7", "--format", "json"});
  EXPECT_EQ(set.exit_code(2 * patience_s), 0) << set.errors();  // twice the status and a setting take 25 s
  EXPECT_EQ(set.rest_of_output(), R"({"ct":"7","pt":"1","md":"15","sec":"2","hz":"50"})"
                                  "\n");
  const std::string log = meter.command("log");
  EXPECT_TRUE(std::regex_search(log, std::regex(R"re("\? +C7\\r\? +")re"))) << log;
}

TEST(Live, PrintsTheWorkedLoad) {
  MeterProcess meter;
  meter.fix_worked_load();
  Process live({"haldenctl", "live", "--port", meter.port(), "--count", "3", "--format", "json"});
  ASSERT_EQ(live.exit_code(), 0) << live.errors();
  const std::regex time(R"(\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}",)");
  // The first frame comes with the first sampling instant of 2 s: 8338 x 2 / 3600 = 4.6 -> 5,
  // -1960 x 2 / 3600 = -1.1, 8565.3 x 2 / 3600 = 4.8 -> 5.
  const std::string energies =
      R"("WH_sys_value":"0.005KWH","VAH_sys_value":"0.005KVAH","VARH_sys_value":"-0.001KVARH",)"
      R"("PFH_sys_value":"0.97H","W_AD_value":"","VA_AD_value":"","W_MD_value":"------","VA_MD_value":"------",)";
  for (int frame = 0; frame < 3; ++frame) {
    const std::string line = live.read_line().value_or("");
    std::smatch found;
    ASSERT_TRUE(std::regex_search(line, found, time, std::regex_constants::match_continuous)) << line;
    const std::string values = found.suffix();
    EXPECT_EQ(values.substr(0, std::string(worked_load_json).size()), worked_load_json);
    if (frame == 0) {
      EXPECT_TRUE(contains(values, energies)) << values;
      EXPECT_TRUE(contains(values, R"("v2_phasor_angle":"-120.0","i2_phasor_angle":"-133.2")")) << values;
    }
  }
  EXPECT_EQ(live.rest_of_output(), "");
  EXPECT_EQ(live.errors(), "");
}

// A desktop that writes commas. The locale is made for the test where the system can make it.
TEST(Live, PrintsTheSameUnderAGermanLocale) {
  MeterProcess meter;
  const std::string name = "de_DE.UTF-8";
  Surroundings german{{"LC_ALL=" + name}, {}, {}};
  const Ended made = run_to_end({"/usr/bin/localedef", "-i", "de_DE", "-f", "UTF-8", meter.folder() / name});
  if (made.exit_code == 0) german.set.push_back("LOCPATH=" + meter.folder().path());
  const Ended point = run_to_end({"/usr/bin/locale", "decimal_point"}, german);
  if (point.output != ",\n") GTEST_SKIP() << "no German locale on this system";
  meter.fix_worked_load();
  const Ended ended =
      run_to_end({"haldenctl", "live", "--port", meter.port(), "--count", "1", "--format", "json"}, german);
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors, "");
  EXPECT_TRUE(contains(ended.output, worked_load_json)) << ended.output;
}

// The reading that ends the wait is one the meter did not give before the adapter was pulled.
TEST(Live, GoesOnByItselfWhenTheAdapterIsBack) {
  MeterProcess meter;
  meter.fix_worked_load();
  Process live({"haldenctl", "live", "--port", meter.port(), "--format", "json"});
  ASSERT_TRUE(contains(live.read_line().value_or(""), R"("V1_value":"230.1V")"));
  EXPECT_EQ(meter.command("unplug 1"), "ok");
  EXPECT_EQ(meter.command("raw 1 2222 12340 2781 0 116"), "ok");
  EXPECT_EQ(meter.announcement().substr(0, 8), "plugged ");
  std::string line;
  do {
    line = live.read_line().value_or("");
  } while (contains(line, R"("V1_value":"230.1V")"));
  EXPECT_TRUE(contains(line, R"("V1_value":"222.2V")")) << line;
  live.send_signal(SIGINT);
  EXPECT_EQ(live.exit_code(), 0);
  EXPECT_EQ(live.errors(), "");
}

TEST(Live, EndsQuietlyWhenItsReaderHasSeenEnough) {
  Process live({"haldenctl", "live", "--port", "demo"});
  const std::string first = live.read_line().value_or("");
  EXPECT_EQ(first.substr(0, 5), "time=");
  live.stop_reading();
  EXPECT_EQ(live.exit_code(), 0);
  EXPECT_EQ(live.errors(), "");
}

TEST(Live, ResultsThatCannotBeWrittenAreAFailure) {
  const std::string command = "exec " HALDEN_BIN_DIR "/haldenctl live --port demo --count 1 > /dev/full";
  const Ended ended = run_to_end({"/bin/sh", "-c", command});
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_EQ(ended.errors, "The results could not be written.\n");
}

TEST(Live, ATerminationEndsItCleanlyBetweenTwoReadings) {
  Process live({"haldenctl", "live", "--port", "demo", "--format", "json"});
  ASSERT_TRUE(live.read_line());
  live.send_signal(SIGTERM);
  EXPECT_EQ(live.exit_code(), 0);
  const std::string rest = live.rest_of_output();
  EXPECT_TRUE(rest.empty() || rest.back() == '\n') << rest;
  EXPECT_EQ(live.errors(), "");
}

// The meter's log tells when a program has opened the port for good and waits for the status, a wait that
// takes no input.
void wait_for_request(MeterProcess& meter, Process& program) {
  while (meter.command("log") == "0 \"\"") ASSERT_FALSE(program.exit_code(0.05)) << program.errors();
}

TEST(Status, AnInterruptionIsAFailure) {
  MeterProcess meter;
  Process status({"haldenctl", "status", "--port", meter.port()});
  wait_for_request(meter, status);
  status.send_signal(SIGINT);
  EXPECT_EQ(status.exit_code(), 1);
  EXPECT_EQ(status.rest_of_output(), "");
  EXPECT_EQ(status.errors(), "It was interrupted before the meter had answered.\n");
}

TEST(Live, APortInUseIsRefusedToTheSecondProgram) {
  MeterProcess meter;
  Process first({"haldenctl", "live", "--port", meter.port()});
  wait_for_request(meter, first);
  const Ended second = run_to_end({"haldenctl", "live", "--port", meter.port()});
  EXPECT_EQ(second.exit_code, 1);
  EXPECT_EQ(second.output, "");
  EXPECT_EQ(second.errors, meter.port() + " is in use by another program.\n");
  first.send_signal(SIGINT);
  EXPECT_EQ(first.exit_code(), 0);
  EXPECT_EQ(first.rest_of_output() + first.errors(), "");
}

}  // namespace
}  // namespace halden
