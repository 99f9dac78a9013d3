// haldenctl and the simulated meter, joined by a pseudo-terminal.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <regex>
#include <sstream>

#include "program.h"

namespace halden {
namespace {

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Status, ASilentMeterIsAFailure) {
  SimulatedMeter meter("--fault silence");
  const Ended ended = run("haldenctl status --port " + meter.port);
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors,
            "Meter status could not be obtained, please check connections, com port, etc, and try again.\n");
}

// "script" runs it on a terminal, which ends lines with a carriage return.
TEST(Status, OnATerminalItSaysWhatItDoesAndErasesThat) {
  const Ended ended = run("script -qec \"haldenctl status --port demo\" /dev/null");
  EXPECT_TRUE(ended.output.starts_with("Reading the settings...\r                       \rmeter_mode=1\r\n"))
      << ended.output;
}

TEST(Status, WhileItWaitsThePortIsInUseAndAnInterruptionIsAFailure) {
  SimulatedMeter meter;
  Program status("haldenctl status --port " + meter.port);
  meter.wait_for_request();
  const Ended second = run("haldenctl live --port " + meter.port);
  EXPECT_EQ(second.exit_code, 1);
  EXPECT_EQ(second.output, "");
  const std::string in_use =
      meter.port + " is in use by another program. If none uses it, delete the lock file ";
  ASSERT_TRUE(second.errors.starts_with(in_use)) << second.errors;
  const std::string lock = second.errors.substr(in_use.size(), second.errors.size() - in_use.size() - 2);
  EXPECT_TRUE(std::filesystem::exists(lock)) << lock;
  status.send_signal(SIGINT);
  const Ended first = status.end();
  EXPECT_EQ(first.exit_code, 1);
  EXPECT_EQ(first.output, "");
  EXPECT_EQ(first.errors, "It was interrupted before the meter had answered.\n");
}

TEST(Set, SendsOneCharacterAtATimeAndPrintsWhatTheMeterHolds) {
  SimulatedMeter meter;
  const Ended set = run("haldenctl set ct=7 --format json --port " + meter.port);
  EXPECT_EQ(set.exit_code, 0) << set.errors;
  EXPECT_EQ(set.output, R"({"ct":"7","pt":"1","md":"15","sec":"2","hz":"50"})"
                        "\n");
  const std::string log = meter.program.answer("log");
  EXPECT_TRUE(std::regex_search(log, std::regex(R"re("\? +C7\\r\? +")re"))) << log;
}

// A block of a file: two header lines of 32 and 417 characters, then records of 418; the second one is
// interrupted.
TEST(Record, WritesWholeLinesAndAppendsOnlyWhenTold) {
  constexpr std::size_t headers = 32 + 2 + 417 + 2, record = 418 + 2;
  SimulatedMeter meter;
  const std::string file = meter.folder / "電力 1.csv";
  const std::string command = "haldenctl record --port " + meter.port + " --out \"" + file + "\" ";
  const auto recorded = [&meter] { return meter.folder.read("電力 1.csv").size(); };
  const Ended first = run(command + "--records 2");
  EXPECT_EQ(first.output, "file=" + file + "\nrecords=2\n") << first.errors;
  EXPECT_EQ(recorded(), headers + 2 * record);
  EXPECT_EQ(run(command + "--records 2").errors,
            file + " exists. Give --append to write behind what it holds.\n");
  ASSERT_EQ(mkfifo((meter.folder / "fifo").c_str(), 0600), 0);
  EXPECT_EQ(
      run("haldenctl record --append --port " + meter.port + " --out " + (meter.folder / "fifo")).errors,
      (meter.folder / "fifo") + ": not a file.\n");
  Program second(command + "--append --sample=2");
  wait_until([&] { return recorded() >= 2 * headers + 3 * record; });
  second.send_signal(SIGINT);
  EXPECT_EQ(second.end().exit_code, 0);
  EXPECT_EQ((recorded() - 2 * headers) % record, 0u);
  EXPECT_GE(recorded(), 2 * headers + 3 * record);
}

// The second time on a desktop that writes commas.
TEST(Live, PrintsTheWorkedLoadUnderAnyLocale) {
  SimulatedMeter meter;
  for (const char* raw : {"raw 1 2301 12340 2781 0 116", "raw 2 2298 11870 2655 1200 1332",
                          "raw 3 2306 13020 2902 -1200 -1052"})
    EXPECT_EQ(meter.program.answer(raw), "ok") << raw;
  const std::regex line(
      R"re(\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}","V1_value":"230\.1V","I1_value":"12\.34A",)re"
      R"re("W1_value":"2\.781KW","VA1_value":"2\.839KVA","VAR1_value":"-0\.570KVAR","PF1_value":"0\.98",)re"
      R"re("Phase1_value":"-011\.6",.*"V31_value":"398\.9V","W_sys_value":"8\.338KW",.*)re"
      R"re("v2_phasor_angle":"-120\.0","i2_phasor_angle":"-133\.2",.*\})re");
  for (const char* locale : {"", "env LC_ALL=de_DE.UTF-8 "}) {
    const Ended ended = run(locale + ("haldenctl live --count 3 --format json --port " + meter.port));
    EXPECT_EQ(ended.exit_code, 0);
    EXPECT_EQ(ended.errors, "");
    std::istringstream output(ended.output);
    int frames = 0;
    for (std::string frame; std::getline(output, frame); ++frames)
      EXPECT_TRUE(std::regex_match(frame, line)) << frame;
    EXPECT_EQ(frames, 3);
  }
}

// How many numbers the array of that name holds; 0 when anything else stands in it.
std::size_t numbers_in(const std::string& json, const std::string& name) {
  const std::size_t begin = json.find("\"" + name + "\":[");
  const std::size_t first = begin + name.size() + 4;
  if (begin == std::string::npos || json.find_first_not_of("0123456789.,-", first) != json.find(']', first))
    return 0;
  return static_cast<std::size_t>(
             std::count(json.begin() + static_cast<std::ptrdiff_t>(first),
                        json.begin() + static_cast<std::ptrdiff_t>(json.find(']', first)), ',')) +
         1;
}

// A harmonics file has header lines of 70 and 343 characters and records of 1199.
TEST(Harmonics, SpectraAndWaveformsArePrintedAndRecorded) {
  SimulatedMeter meter("--mode harmonics");
  const std::string port = " --port " + meter.port, live = "haldenctl live --count 1 --format json" + port;
  const std::string spectrum = run(live).output;
  EXPECT_TRUE(contains(spectrum, R"("harmonic_percent":[0.0,100.0,)")) << spectrum;
  EXPECT_EQ(numbers_in(spectrum, "harmonic_percent"), 100u);
  EXPECT_EQ(numbers_in(spectrum, "harmonic_angle"), 100u);
  const std::string waveform = run(live + " --waveform").output;
  EXPECT_TRUE(contains(waveform, R"("unit":"V")")) << waveform;
  EXPECT_EQ(numbers_in(waveform, "samples"), 1024u);
  const std::string record = "haldenctl record --records 2 --out " + (meter.folder / "a.csv") + port;
  EXPECT_TRUE(contains(run(record).output, "records=2\n"));
  EXPECT_EQ(meter.folder.read("a.csv").size(), 70u + 2 + 343 + 2 + 2 * (1199 + 2));
}

// The reading that ends the wait is one the meter did not give before the adapter was pulled.
TEST(Live, GoesOnByItselfWhenTheAdapterIsBackAndEndsBetweenTwoReadings) {
  SimulatedMeter meter;
  EXPECT_EQ(meter.program.answer("raw 1 2301 12340 2781 0 116"), "ok");
  Program live("haldenctl live --format json --port " + meter.port);
  EXPECT_TRUE(contains(live.read_line(), R"("V1_value":"230.1V")"));
  EXPECT_EQ(meter.program.answer("unplug 1"), "ok");
  EXPECT_FALSE(std::filesystem::is_symlink(meter.port));
  EXPECT_EQ(meter.program.answer("raw 1 2222 12340 2781 0 116"), "ok");
  const std::string told = meter.program.read_line();
  EXPECT_EQ(told, "plugged " + std::filesystem::read_symlink(meter.port).string());
  std::string line;
  do {
    line = live.read_line();
  } while (contains(line, R"("V1_value":"230.1V")"));
  EXPECT_TRUE(contains(line, R"("V1_value":"222.2V")")) << line;
  live.send_signal(SIGTERM);
  const Ended ended = live.end();
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_TRUE(ended.output.empty() || ended.output.back() == '\n') << ended.output;
  EXPECT_EQ(ended.errors, "");
}

TEST(Live, OnATerminalItIsOneTable) {
  const Ended ended = run(
      "env TERM=xterm script -qec \"stty cols 80 rows 24; haldenctl live --port demo --count 2\" /dev/null");
  EXPECT_TRUE(contains(ended.output, "\x1b[J\x1b[21A\r2")) << ended.output;
  EXPECT_TRUE(ended.output.ends_with("\r\n\x1b[J")) << ended.output;
}

TEST(Live, EndsQuietlyWhenItsReaderHasSeenEnoughButNotOnAFullDisk) {
  const Ended left = run("sh -c \"(haldenctl live --port demo; echo $? >&2) | head -n 1\"");
  EXPECT_EQ(left.output.substr(0, 5), "time=");
  EXPECT_EQ(left.errors, "0\n");
  const Ended full = run("sh -c \"exec haldenctl live --port demo --count 1 > /dev/full\"");
  EXPECT_EQ(full.exit_code, 1);
  EXPECT_EQ(full.errors, "The results could not be written.\n");
}

// The pipe is full, and whoever holds its other end reads nothing. After the second request for a frame the
// first one is printed.
TEST(Live, EndsAtASignalThoughItsReaderHasStopped) {
  SimulatedMeter meter;
  const std::string pipe = meter.folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDWR | O_NONBLOCK);
  while (write(reader, "x", 1) == 1) continue;
  Program live("sh -c \"exec haldenctl live --port " + meter.port + " > " + pipe + "\"");
  wait_until([&] { return contains(meter.program.answer("log"), "?  "); });
  live.send_signal(SIGTERM);
  const auto told = std::chrono::steady_clock::now();
  EXPECT_EQ(live.end().exit_code, 0);
  EXPECT_LT(std::chrono::steady_clock::now() - told, std::chrono::seconds(5));
  close(reader);
}

}  // namespace
}  // namespace halden
