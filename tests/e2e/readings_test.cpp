// haldenctl and the simulated meter, joined by a pseudo-terminal.
#include <signal.h>

#include <regex>
#include <sstream>

#include "meter_process.h"

namespace halden {
namespace {

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Status, ASilentMeterIsAFailure) {
  MeterProcess meter({"--fault", "silence"});
  const Ended ended = run_to_end({"haldenctl", "status", "--port", meter.port()});
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors,
            "Meter status could not be obtained, please check connections, com port, etc, and try again.\n");
}

TEST(Status, WhileItWaitsThePortIsInUseAndAnInterruptionIsAFailure) {
  MeterProcess meter;
  Process status({"haldenctl", "status", "--port", meter.port()});
  meter.wait_for_request();
  const Ended second = run_to_end({"haldenctl", "live", "--port", meter.port()});
  EXPECT_EQ(second.exit_code, 1);
  EXPECT_EQ(second.output, "");
  EXPECT_EQ(second.errors, meter.port() + " is in use by another program.\n");
  status.send_signal(SIGINT);
  EXPECT_EQ(status.exit_code(), 1);
  EXPECT_EQ(status.rest_of_output(), "");
  EXPECT_EQ(status.errors(), "It was interrupted before the meter had answered.\n");
}

TEST(Set, SendsOneCharacterAtATimeAndPrintsWhatTheMeterHolds) {
  MeterProcess meter;
  const Ended set = run_to_end({"haldenctl", "set", "--port", meter.port(), "ct=7", "--format", "json"});
  EXPECT_EQ(set.exit_code, 0) << set.errors;
  EXPECT_EQ(set.output, "{\"ct\":\"7\",\"pt\":\"1\",\"md\":\"15\",\"sec\":\"2\",\"hz\":\"50\"}\n");
  const std::string log = meter.command("log");
  EXPECT_TRUE(std::regex_search(log, std::regex(R"re("\? +C7\\r\? +")re"))) << log;
}

// A block of a file: two header lines of 32 and 417 characters, then records of 418; the second one is
// interrupted.
TEST(Record, WritesWholeLinesAndAppendsOnlyWhenTold) {
  constexpr std::size_t headers = 32 + 2 + 417 + 2, record = 418 + 2;
  MeterProcess meter;
  const std::string file = meter.folder() / "電力 1.csv";
  const auto recorded = [&meter] { return meter.folder().read("電力 1.csv").size(); };
  const auto with = [&](const std::string& option, const std::string& value) {
    return std::vector<std::string>{"haldenctl", "record", "--port", meter.port(),
                                    "--out",     file,     option,   value};
  };
  const Ended first = run_to_end(with("--records", "2"));
  EXPECT_EQ(first.output, "file=" + file + "\nrecords=2\n") << first.errors;
  EXPECT_EQ(recorded(), headers + 2 * record);
  EXPECT_EQ(run_to_end(with("--records", "2")).errors,
            file + " exists. Give --append to write behind what it holds.\n");
  Process second(with("--append", "--sample=2"));
  for (int looks = 0; looks < 1500 && recorded() < 2 * headers + 3 * record; ++looks)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  second.send_signal(SIGINT);
  EXPECT_EQ(second.exit_code(), 0) << second.errors();
  EXPECT_EQ((recorded() - 2 * headers) % record, 0u);
  EXPECT_GE(recorded(), 2 * headers + 3 * record);
}

// The load of the live power scenario, where every digit is worked out by hand.
void expect_worked_load(MeterProcess& meter, const Surroundings& surroundings) {
  const std::string panels =
      R"("V1_value":"230.1V","I1_value":"12.34A","W1_value":"2.781KW","VA1_value":"2.839KVA",)"
      R"("VAR1_value":"-0.570KVAR","PF1_value":"0.98","Phase1_value":"-011.6",)"
      R"("V2_value":"229.8V","I2_value":"11.87A","W2_value":"2.655KW","VA2_value":"2.727KVA",)"
      R"("VAR2_value":"-0.622KVAR","PF2_value":"0.97","Phase2_value":"-013.2",)"
      R"("V3_value":"230.6V","I3_value":"13.02A","W3_value":"2.902KW","VA3_value":"3.002KVA",)"
      R"("VAR3_value":"-0.768KVAR","PF3_value":"0.96","Phase3_value":"-014.8",)"
      R"("V12_value":"398.2V","V23_value":"398.7V","V31_value":"398.9V",)"
      R"("W_sys_value":"8.338KW","VA_sys_value":"8.565KVA","VAR_sys_value":"-1.960KVAR",)"
      R"("PF_sys_value":"0.97",)";
  const Ended ended = run_to_end(
      {"haldenctl", "live", "--port", meter.port(), "--count", "3", "--format", "json"}, surroundings);
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors, "");
  const std::regex time(R"(\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}",)");
  std::istringstream lines(ended.output);
  int frames = 0;
  for (std::string line; std::getline(lines, line); ++frames) {
    EXPECT_TRUE(std::regex_search(line, time, std::regex_constants::match_continuous)) << line;
    EXPECT_EQ(line.substr(line.find(',') + 1, panels.size()), panels);
    EXPECT_TRUE(contains(line, R"("v2_phasor_angle":"-120.0","i2_phasor_angle":"-133.2")")) << line;
  }
  EXPECT_EQ(frames, 3);
}

// The second time on a desktop that writes commas. Its locale is made for the test where the system can.
TEST(Live, PrintsTheWorkedLoadUnderAnyLocale) {
  MeterProcess meter;
  for (const char* raw : {"raw 1 2301 12340 2781 0 116", "raw 2 2298 11870 2655 1200 1332",
                          "raw 3 2306 13020 2902 -1200 -1052"})
    EXPECT_EQ(meter.command(raw), "ok") << raw;
  expect_worked_load(meter, {});
  const std::string name = "de_DE.UTF-8";
  Surroundings german = {"LC_ALL=" + name};
  const Ended made = run_to_end({"/usr/bin/localedef", "-i", "de_DE", "-f", "UTF-8", meter.folder() / name});
  if (made.exit_code == 0) german.push_back("LOCPATH=" + meter.folder().path());
  const Ended point = run_to_end({"/usr/bin/locale", "decimal_point"}, german);
  if (point.output != ",\n") GTEST_SKIP() << "no German locale on this system";
  expect_worked_load(meter, german);
}

// The reading that ends the wait is one the meter did not give before the adapter was pulled.
TEST(Live, GoesOnByItselfWhenTheAdapterIsBackAndEndsBetweenTwoReadings) {
  MeterProcess meter;
  EXPECT_EQ(meter.command("raw 1 2301 12340 2781 0 116"), "ok");
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
  live.send_signal(SIGTERM);
  EXPECT_EQ(live.exit_code(), 0);
  const std::string rest = live.rest_of_output();
  EXPECT_TRUE(rest.empty() || rest.back() == '\n') << rest;
  EXPECT_EQ(live.errors(), "");
}

TEST(Live, EndsQuietlyWhenItsReaderHasSeenEnough) {
  Process live({"haldenctl", "live", "--port", "demo"});
  EXPECT_EQ(live.read_line().value_or("").substr(0, 5), "time=");
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

}  // namespace
}  // namespace halden
