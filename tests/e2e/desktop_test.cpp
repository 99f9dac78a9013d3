// The program with its windows on a screen in memory, and the simulated meter behind a pseudo-terminal.
#include <signal.h>

#include <regex>

#include "meter_process.h"

namespace halden {
namespace {

// A screen large enough for the window's own size, 1280 x 800.
constexpr const char* large_screen =
    R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [{"name": "large",
        "x": 0, "y": 0, "width": 1920, "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

// The width and height in the header of a PNG picture, which begins with its signature, the length of the
// header and its name.
std::pair<int, int> png_size(const std::string& bytes) {
  constexpr std::size_t width_position = 16;
  const std::string beginning("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", width_position);
  if (bytes.size() < width_position + 8 || bytes.compare(0, width_position, beginning) != 0) return {0, 0};
  const auto number = [&](std::size_t position) {
    int result = 0;
    for (std::size_t i = 0; i < 4; ++i)
      result = result * 256 + static_cast<unsigned char>(bytes[position + i]);
    return result;
  };
  return {number(width_position), number(width_position + 4)};
}

const Surroundings offscreen{{"QT_QPA_PLATFORM=offscreen"}, {}, {}};

TEST(Desktop, ReadsTheMeterThroughTheRealPortAndTakesAPicture) {
  MeterProcess meter;
  meter.fix_worked_load();
  meter.folder().write("screen.json", large_screen);
  const Surroundings with_large_screen{
      {"QT_QPA_PLATFORM=offscreen:configfile=" + (meter.folder() / "screen.json")}, {}, {}};
  const Ended ended = run_to_end({"halden", "--com", "1=" + meter.port(), "--workdir", meter.folder().path(),
                                  "--screenshot", meter.folder() / "電表.png", "--after", "2"},
                                 with_large_screen);
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors.find("Meter status"), std::string::npos) << ended.errors;  // no box was shown
  EXPECT_EQ(png_size(meter.folder().read("電表.png")), std::pair(1280, 800));
  // The status, then one request per frame; several frames a second for two seconds.
  const std::string log = meter.command("log");
  EXPECT_TRUE(std::regex_match(log, std::regex(R"re(\d+ "\? {5,}")re"))) << log;
}

// Nobody is there to answer the message that a port is to be chosen.
TEST(Desktop, APictureThatCannotBeWrittenIsAFailure) {
  TempFolder folder;
  const Ended ended = run_to_end(
      {"halden", "--workdir", folder.path(), "--after", "0.05", "--screenshot", "/not/there.png"}, offscreen);
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_NE(ended.errors.find("Select COM port from the OPTION menu"), std::string::npos) << ended.errors;
  EXPECT_NE(ended.errors.find("/not/there.png"), std::string::npos) << ended.errors;
}

// The meter's log tells that the program waits for the status, a wait that takes no input.
TEST(Desktop, EndsWhenToldToInTheMiddleOfAWait) {
  MeterProcess meter;
  Process program({"halden", "--com", "1=" + meter.port(), "--workdir", meter.folder().path()}, offscreen);
  while (meter.command("log") == "0 \"\"") ASSERT_FALSE(program.exit_code(0.05)) << program.errors();
  program.send_signal(SIGTERM);
  EXPECT_EQ(program.exit_code(), 0);
  EXPECT_EQ(meter.command("log"), "1 \"?\"") << "nothing more is sent";
}

}  // namespace
}  // namespace halden
