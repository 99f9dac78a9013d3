// halden-meter as the other end of a serial line, to whatever program opens it.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include "meter_process.h"

namespace halden {
namespace {

namespace fs = std::filesystem;

bool is_link(const std::string& path) { return fs::is_symlink(fs::symlink_status(path)); }

// Opens the line, sends one request, and reads that many bytes.
std::string ask(const std::string& path, char request, int bytes) {
  return run_to_end({"/bin/sh", "-c",
                     "exec 3<>" + path + "; printf " + request + " >&3; exec head -c " +
                         std::to_string(bytes) + " <&3"})
      .output;
}

// Bytes 13, 10 and 0 must cross the line unchanged, and 2108 bytes take 2.2 s.
TEST(PtyMeter, TheLineIsTransparentAndSlowAndOpensAgainAndAgain) {
  MeterProcess meter({"--mode", "harmonics", "--wiring", "3P3W"});
  EXPECT_EQ(meter.command("channel 4"), "ok");
  const auto start = std::chrono::steady_clock::now();
  const std::string frame = ask(meter.port(), 'W', 2108);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(frame.size(), 2108u);
  EXPECT_EQ(frame.substr(2050, 3) + frame.substr(2106), " O= E");
  EXPECT_GT(elapsed.count(), 2.19);
  for (int time = 0; time < 2; ++time)
    EXPECT_EQ(ask(meter.port(), '?', 210).substr(0, 18), "00000 00004 00002 ");
}

TEST(PtyMeter, AnUnpluggedDeviceHangsUpAndComesBackBehindTheSameLink) {
  MeterProcess meter;
  const int port = ::open(meter.port().c_str(), O_RDWR | O_NOCTTY);
  EXPECT_EQ(meter.command("unplug 0.2"), "ok");
  EXPECT_FALSE(is_link(meter.port()));
  pollfd hung{port, 0, 0};
  EXPECT_EQ(::poll(&hung, 1, 10'000), 1);
  EXPECT_NE(hung.revents & POLLHUP, 0);
  ::close(port);
  const std::string told = meter.announcement();
  EXPECT_EQ(told, "plugged " + fs::read_symlink(meter.port()).string());
}

TEST(PtyMeter, ReplacesAStaleLinkButNoFileAndLeavesNothingBehind) {
  TempFolder folder;
  const std::string link = folder / "line";
  for (const bool by_signal : {true, false}) {
    fs::create_symlink("/dev/pts/stale", link);
    Process meter({"halden-meter", "--link", link});
    const auto device = meter.read_line();
    EXPECT_EQ(device, fs::read_symlink(link).string());
    by_signal ? meter.send_signal(SIGTERM) : meter.write_line("quit");
    EXPECT_EQ(meter.exit_code(), 0);
    EXPECT_FALSE(is_link(link));
  }
  folder.write("file", "text");
  const Ended refused = run_to_end({"halden-meter", "--link", folder / "file"});
  EXPECT_EQ(refused.exit_code, 1);
  EXPECT_EQ(refused.errors,
            "halden-meter: The link " + folder / "file" + " could not be made: File exists.\n");
  EXPECT_EQ(folder.read("file"), "text");
}

TEST(PtyMeter, GoesOnWithoutAConsole) {
  TempFolder folder;
  const std::string link = folder / "line";
  Process meter({"/bin/sh", "-c", "exec " HALDEN_BIN_DIR "/halden-meter --link " + link + " < /dev/null"});
  ASSERT_TRUE(meter.read_line());
  EXPECT_EQ(ask(link, '?', 210).size(), 210u);
}

}  // namespace
}  // namespace halden
