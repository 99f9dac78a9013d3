// The program with its windows on a screen in memory, and the simulated meter behind a pseudo-terminal.
#include <regex>

#include "program.h"

namespace halden {
namespace {

// A screen large enough for the window's own size, 1280 x 800.
constexpr const char* large_screen =
    R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [{"name": "large",
        "x": 0, "y": 0, "width": 1920, "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

TEST(Desktop, ReadsTheMeterThroughTheRealPortAndTakesAPicture) {
  SimulatedMeter meter;
  meter.folder.write("screen.json", large_screen);
  const Ended ended = run("env QT_QPA_PLATFORM=offscreen:configfile=" + (meter.folder / "screen.json") +
                          " halden --com 1=" + meter.port + " --workdir " + (meter.folder / "") +
                          " --after 2 --screenshot " + (meter.folder / "電表.png"));
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors.find("Meter status"), std::string::npos) << ended.errors;  // no box was shown
  // The signature of a PNG picture, the length and name of its header, then 1280 x 800.
  const std::string picture("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x05\0\0\0\x03\x20", 24);
  EXPECT_EQ(meter.folder.read("電表.png").substr(0, picture.size()), picture);
  // The status, then one request per frame; several frames a second for two seconds.
  const std::string log = meter.program.answer("log");
  EXPECT_TRUE(std::regex_match(log, std::regex(R"re(\d+ "\? {5,}")re"))) << log;
}

// Nobody is there to answer the message that a port is to be chosen.
TEST(Desktop, APictureThatCannotBeWrittenIsAFailure) {
  TempFolder folder;
  const Ended ended = run("env QT_QPA_PLATFORM=offscreen halden --workdir " + (folder / "") +
                          " --after 0.05 --screenshot /not/there.png");
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_NE(ended.errors.find("Select COM port from the OPTION menu"), std::string::npos) << ended.errors;
  EXPECT_NE(ended.errors.find("/not/there.png"), std::string::npos) << ended.errors;
}

TEST(Desktop, EndsWhenToldToInTheMiddleOfAWait) {
  SimulatedMeter meter;
  Program program("env QT_QPA_PLATFORM=offscreen halden --com 1=" + meter.port + " --workdir " +
                  (meter.folder / ""));
  meter.wait_for_request();
  program.send_signal(SIGTERM);
  EXPECT_EQ(program.end().exit_code, 0);
  EXPECT_EQ(meter.program.answer("log"), "1 \"?\"") << "nothing more is sent";
}

}  // namespace
}  // namespace halden
