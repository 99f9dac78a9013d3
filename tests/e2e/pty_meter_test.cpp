// halden-meter as the other end of a serial line, to whatever program opens it.
#include <chrono>
#include <filesystem>

#include "program.h"

namespace halden {
namespace {

namespace fs = std::filesystem;

// Opens the line, sends one request, and reads that many bytes.
std::string ask(const std::string& path, const char* request, int bytes) {
  return run("sh -c \"exec 3<>" + path + "; printf " + request + " >&3; exec head -c " +
             std::to_string(bytes) + " <&3\"")
      .output;
}

// Bytes 13, 10 and 0 must cross the line unchanged, and 2108 bytes take 2.2 s.
TEST(PtyMeter, TheLineIsTransparentAndSlowAndOpensAgainAndAgain) {
  SimulatedMeter meter("--mode harmonics --wiring 3P3W");
  EXPECT_EQ(meter.program.answer("channel 4"), "ok");
  const auto start = std::chrono::steady_clock::now();
  const std::string frame = ask(meter.port, "W", 2108);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(frame.size(), 2108u);
  EXPECT_EQ(frame.substr(2050, 3) + frame.substr(2106), " O= E");
  EXPECT_GT(elapsed.count(), 2.19);
  for (int time = 0; time < 2; ++time)
    EXPECT_EQ(ask(meter.port, "?", 210).substr(0, 18), "00000 00004 00002 ");
  EXPECT_EQ(meter.program.answer("transient"), "ok");
  EXPECT_EQ(ask(meter.port, "x", 29), "26,02,27,23,50,10,1,2300,10\r\n") << "x asks for nothing";
}

TEST(PtyMeter, HoldsTheExampleFilesUnlessItIsToBeEmpty) {
  for (const auto& [option, files] : {std::pair("", "00007 "), {"--memory empty", "00000 "}})
    EXPECT_EQ(ask(SimulatedMeter(option).port, "?", 210).substr(34 * 6), files);
}

// With and without a console.
TEST(PtyMeter, ReplacesAStaleLinkButNoFileAndLeavesNothingBehind) {
  TempFolder folder;
  const std::string link = folder / "line", command = "halden-meter --link " + link;
  for (const bool console : {true, false}) {
    fs::create_symlink("/dev/pts/stale", link);
    Program meter(console ? command : "sh -c \"exec " + command + " < /dev/null\"");
    const std::string device = meter.read_line();
    EXPECT_EQ(device, fs::read_symlink(link));
    EXPECT_EQ(ask(link, "?", 210).size(), 210u);
    console ? meter.write("quit") : meter.send_signal(SIGTERM);
    EXPECT_EQ(meter.end().exit_code, 0);
    EXPECT_FALSE(fs::is_symlink(link));
  }
  folder.write("line", "text");
  const Ended refused = run(command);
  EXPECT_EQ(refused.exit_code, 1);
  EXPECT_EQ(refused.errors, "halden-meter: The link " + link + " could not be made: File exists.\n");
  EXPECT_EQ(folder.read("line"), "text");
}

}  // namespace
}  // namespace halden
