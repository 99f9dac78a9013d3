#include "simulator/pty_meter.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace halden {
namespace {

namespace fs = std::filesystem;

constexpr int patience_ms = 10'000;

// At least `bytes` bytes, or what came before the patience ran out.
std::string read_from(int descriptor, std::size_t bytes) {
  std::string text;
  pollfd waiting{descriptor, POLLIN, 0};
  while (text.size() < bytes && ::poll(&waiting, 1, patience_ms) > 0) {
    std::array<char, 4096> piece;
    const auto count = ::read(descriptor, piece.data(), std::min(piece.size(), bytes - text.size()));
    if (count <= 0) break;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
  return text;
}

std::string read_line(int descriptor) {
  std::string line, byte;
  while ((byte = read_from(descriptor, 1)) != "" && byte != "\n") line += byte;
  return line;
}

// A PtyMeter serving in a child process, its standard input and output at our ends of two pipes.
class PtyMeterTest : public testing::Test {
 protected:
  void SetUp() override {
    link_ = (fs::temp_directory_path() / ("halden-meter-test-" + std::to_string(::getpid()))).string();
    fs::create_symlink("/dev/pts/stale", link_);
    std::array<int, 2> in{}, out{};
    ASSERT_EQ(::pipe(in.data()), 0);
    ASSERT_EQ(::pipe(out.data()), 0);
    std::fflush(stdout);  // the child would write it again
    child_ = ::fork();
    if (child_ == 0) {
      ::dup2(in[0], STDIN_FILENO);
      ::dup2(out[1], STDOUT_FILENO);
      for (const int descriptor : {in[0], in[1], out[0], out[1]}) ::close(descriptor);
      Meter meter;
      ::_exit(PtyMeter(meter, link_).run().empty() ? 0 : 1);
    }
    ::close(in[0]);
    ::close(out[1]);
    commands_ = in[1];
    answers_ = out[0];
    device_ = read_line(answers_);
  }

  void TearDown() override {
    if (child_ > 0) ::kill(child_, SIGKILL);
    end_status();
    ::close(commands_);
    ::close(answers_);
    std::error_code ignored;
    fs::remove(link_, ignored);
  }

  std::string command(const std::string& line) {
    const std::string sent = line + "\n";
    return ::write(commands_, sent.data(), sent.size()) > 0 ? read_line(answers_) : "";
  }

  std::string ask(char request, std::size_t bytes) {
    const int port = ::open(link_.c_str(), O_RDWR | O_NOCTTY);
    const std::string reply = ::write(port, &request, 1) == 1 ? read_from(port, bytes) : "";
    ::close(port);
    return reply;
  }

  // Waits for the child; -1 when it was killed.
  int end_status() {
    if (child_ <= 0) return -1;
    int status = 0;
    ::waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string link_, device_;
  pid_t child_ = -1;
  int commands_ = -1;
  int answers_ = -1;
};

TEST_F(PtyMeterTest, AnswersBehindItsLinkAgainAndAgain) {
  EXPECT_EQ(fs::read_symlink(link_), device_);
  EXPECT_EQ(command("wiring 1P2W"), "ok");
  EXPECT_EQ(command("raw 1 2301 8123 1812 0 142"), "ok");
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(ask(' ', 53), "V1=  2301  I1=  8123  W1=  1812  P1=     0  Q1=   142");
  EXPECT_EQ(command("log"), "3 \"   \"");
  EXPECT_EQ(command("quit"), "ok");
  EXPECT_EQ(end_status(), 0);
  EXPECT_FALSE(fs::is_symlink(fs::symlink_status(link_)));
}

// Bytes 13, 10 and 0 must cross the line unchanged, and 2108 bytes take 2.2 s.
TEST_F(PtyMeterTest, LineIsTransparentAndSlow) {
  EXPECT_EQ(command("mode harmonics"), "ok");
  const auto start = std::chrono::steady_clock::now();
  const std::string frame = ask('W', 2108);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(frame.substr(2050, 3), " O=");
  EXPECT_EQ(frame.substr(2106), " E");
  EXPECT_GT(elapsed.count(), 2.19);
}

TEST_F(PtyMeterTest, AnUnpluggedDeviceComesBackBehindTheSameLink) {
  const int port = ::open(link_.c_str(), O_RDWR | O_NOCTTY);
  EXPECT_EQ(command("unplug 0.2"), "ok");
  EXPECT_FALSE(fs::is_symlink(fs::symlink_status(link_)));
  pollfd hung{port, 0, 0};
  EXPECT_EQ(::poll(&hung, 1, patience_ms), 1);
  EXPECT_NE(hung.revents & POLLHUP, 0);
  ::close(port);
  const std::string told = read_line(answers_);
  EXPECT_EQ(told, "plugged " + fs::read_symlink(link_).string());
  EXPECT_EQ(ask('?', 210).substr(0, 6), "00001 ");
}

TEST_F(PtyMeterTest, EndOfInputIsNoEndButASignalIs) {
  ::close(std::exchange(commands_, -1));
  EXPECT_EQ(ask('?', 210).size(), 210U);
  ::kill(child_, SIGTERM);
  EXPECT_EQ(end_status(), 0);
  EXPECT_FALSE(fs::is_symlink(fs::symlink_status(link_)));
}

TEST(PtyMeter, RefusesALinkThatWouldReplaceAFile) {
  const std::string path =
      (fs::temp_directory_path() / ("halden-file-" + std::to_string(::getpid()))).string();
  ::close(::open(path.c_str(), O_CREAT | O_WRONLY, 0600));
  Meter meter;
  EXPECT_EQ(PtyMeter(meter, path).run(), "The link " + path + " could not be made: File exists.");
  EXPECT_TRUE(fs::is_regular_file(path));
  fs::remove(path);
}

}  // namespace
}  // namespace halden
