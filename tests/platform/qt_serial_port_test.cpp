#include "platform/qt/core/qt_serial_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <ctime>
#include <utility>

#include "in_child.h"
#include "qt_events.h"

namespace halden {
namespace {

TEST(PortTable, SixteenPortsUnlessOverridden) {
  PortTable table;
  for (const int number : {2, 0, 17}) table.override_device(number, "/tmp/meter");
  const std::pair<int, const char*> devices[] = {
      {0, ""},           {1, "/dev/ttyUSB0"}, {2, "/tmp/meter"},    {3, "/dev/ttyUSB2"},  {5, "/dev/ttyACM0"},
      {9, "/dev/ttyS0"}, {12, "/dev/ttyS3"},  {13, "/dev/rfcomm0"}, {16, "/dev/rfcomm3"}, {17, ""}};
  for (const auto& [number, device] : devices) EXPECT_EQ(table.device(number), device) << number;
  EXPECT_EQ(parse_port_override("1=/dev/ttyUSB7"), std::pair(1, std::string("/dev/ttyUSB7")));
  EXPECT_EQ(parse_port_override("16=a b=c"), std::pair(16, std::string("a b=c")));
  for (const char* text : {"0=/dev/x", "17=/dev/x", "-1=/dev/x", "99999999999=/dev/x", "1=", "1", "",
                           "=/dev/x", "COM1=/dev/x", "1 =/dev/x", "1:/dev/x"})
    EXPECT_EQ(parse_port_override(text), std::nullopt) << text;
}

constexpr int number = last_port_number;

PortTable table_with(const std::string& device) {
  PortTable table;
  table.override_device(number, device);
  return table;
}

// All byte values again and again, but with a period that is no power of two, so that a lost piece shows.
std::string all_bytes(std::size_t size) {
  std::string result(size, '\0');
  for (std::size_t i = 0; i < size; ++i) result[i] = static_cast<char>((i + i / 256) % 256);
  return result;
}

// A port that is open, and its meter behind a symbolic link: the other end of a pseudo-terminal.
class QtSerialPortTest : public testing::Test {
 protected:
  void SetUp() override {
    plug_in();
    ASSERT_EQ(port_.open(number), PortRefusal::none);
  }
  void TearDown() override { unplug(); }

  std::string path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }

  // The slave stays open: the meter's side would get an input/output error while nobody else listens.
  void plug_in() {
    ASSERT_EQ(openpty(&meter_, &slave_, nullptr, nullptr, nullptr), 0);
    ASSERT_EQ(fcntl(meter_, F_SETFL, O_NONBLOCK), 0);
    device_ = ttyname(slave_);
    ASSERT_EQ(symlink(device_.c_str(), link_.c_str()), 0);
  }

  // The link goes before the meter does: the system gives the name of a dead pseudo-terminal to the next
  // one, which may be another test's.
  void unplug() {
    if (unlink(link_.c_str()) != 0) return;  // is out already
    ::close(slave_);
    ::close(meter_);
  }

  // The meter writes what the line takes at the moment; how much that was.
  std::size_t meter_writes(std::string_view bytes) {
    return static_cast<std::size_t>(std::max<ssize_t>(::write(meter_, bytes.data(), bytes.size()), 0));
  }

  // What has arrived at the meter.
  std::string meter_reads() {
    std::string result;
    char piece[4096];
    for (ssize_t got; (got = ::read(meter_, piece, sizeof piece)) > 0;)
      result.append(piece, static_cast<std::size_t>(got));
    return result;
  }

  bool becomes(PortState state, int limit_ms) {
    return run_events_until([&] { return port_.state() == state; }, limit_ms);
  }

  // Receives until all has come, whatever of it the meter has `written` before, in pieces of 64 KiB at most.
  void expect_received(const std::string& sent, std::size_t written) {
    std::string received;
    const QDeadlineTimer deadline(10000);
    while (received.size() < sent.size() && !deadline.hasExpired()) {
      written += meter_writes(std::string_view(sent).substr(written));
      EXPECT_LE(port_.received_count(), 65536u);
      const std::string piece = port_.receive();
      EXPECT_LE(piece.size(), 65536u);
      received += piece;
    }
    EXPECT_TRUE(received == sent) << received.size() << " bytes arrived";
  }

  QTemporaryDir folder_;
  const std::string link_ = path("plugged_meter");
  std::string device_;
  int meter_ = -1, slave_ = -1;
  QtSerialPort port_{table_with(link_)};
};

// A lock per name alone would let two programs share the line.
TEST_F(QtSerialPortTest, RefusalsNameTheirCause) {
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  ASSERT_EQ(mknod(path("file").c_str(), S_IFREG | 0600, 0), 0);
  ASSERT_EQ(symlink("nowhere", path("dangling").c_str()), 0);
  ASSERT_EQ(symlink("/dev/null", path("null").c_str()), 0);
  const std::pair<std::string, PortRefusal> rows[] = {
      {path("dangling"), PortRefusal::missing}, {path("file/below_a_file"), PortRefusal::missing},
      {path("fifo"), PortRefusal::not_serial},  {path("null"), PortRefusal::not_serial},
      {device_, PortRefusal::in_use},           {link_, PortRefusal::in_use}};
  for (const auto& [device, refusal] : rows) {
    QtSerialPort port(table_with(device));
    EXPECT_EQ(port.open(number), refusal) << device;
    EXPECT_EQ(port.state(), PortState::closed) << device;
    EXPECT_EQ(port.present(number), refusal != PortRefusal::missing) << device;
    EXPECT_EQ(QFile::exists(QString::fromStdString(port.lock_file(number))), refusal == PortRefusal::in_use)
        << device;
  }
  EXPECT_EQ(port_.open(17), PortRefusal::invalid_number);
  EXPECT_EQ(port_.state(), PortState::closed) << "whatever is opened, the port before is closed";
  EXPECT_FALSE(port_.present(17));
  EXPECT_EQ(QtSerialPort(table_with(device_)).open(number), PortRefusal::none);
  ASSERT_EQ(chmod(device_.c_str(), 0), 0);
  EXPECT_EQ(run_unprivileged([&] { return port_.open(number); }), PortRefusal::forbidden);
}

// Without the event loop a look at the port must fetch; under it Qt buffers without limit, and a call of ours
// must stay bounded. Nothing is lost.
TEST_F(QtSerialPortTest, ReceivesEveryByteInBoundedPieces) {
  EXPECT_EQ(port_.receive(), "");
  const std::string sent = all_bytes(300000);
  std::size_t written = meter_writes(std::string_view(sent).substr(0, 200));
  EXPECT_EQ(port_.received_count(), 200u);
  expect_received(sent, written);
  EXPECT_EQ(port_.received_count(), 0u);
  written = 0;
  ASSERT_TRUE(run_events_until([&] {
    written += meter_writes(std::string_view(sent).substr(written));
    return written == sent.size();
  }));
  expect_received(sent, written);
}

// A meter that does not read fills the output buffer, which Qt reports like a lost device.
TEST_F(QtSerialPortTest, SendsAtOnceUnchangedAndIntoAFullBuffer) {
  port_.send(all_bytes(256));
  EXPECT_EQ(meter_reads(), all_bytes(256));
  const std::string sent = all_bytes(100000);
  for (std::size_t from = 0; from < sent.size(); from += 10000) port_.send(sent.substr(from, 10000));
  EXPECT_EQ(port_.state(), PortState::open);
  std::string arrived;
  EXPECT_TRUE(run_events_until([&] { return (arrived += meter_reads()).size() >= sent.size(); }));
  EXPECT_TRUE(arrived == sent) << arrived.size() << " bytes arrived";
  EXPECT_EQ(port_.state(), PortState::open);
  port_.close();
  port_.send("dropped");
  EXPECT_EQ(meter_reads(), "");
}

// A wait without a running event loop must notice as well, and keep what had arrived before.
TEST_F(QtSerialPortTest, AHangUpIsNoticedBySendAndReceive) {
  meter_writes("last words");
  ASSERT_EQ(port_.received_count(), 10u);
  unplug();
  port_.received_count();
  EXPECT_EQ(port_.state(), PortState::vanished);
  EXPECT_EQ(port_.receive(), "last words");
  plug_in();
  ASSERT_EQ(port_.open(number), PortRefusal::none);
  unplug();
  port_.send("?");
  EXPECT_EQ(port_.state(), PortState::vanished);
}

TEST_F(QtSerialPortTest, AVanishedPortCostsNothingAndComesBackUnderTheSameNumber) {
  unplug();
  ASSERT_TRUE(becomes(PortState::vanished, 1000));
  EXPECT_FALSE(port_.present(number));
  port_.send("dropped");
  EXPECT_EQ(port_.receive(), "");
  const std::clock_t began = std::clock();
  run_events_for(1000);
  EXPECT_LT(static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC, 0.2);
  EXPECT_EQ(port_.state(), PortState::vanished);
  plug_in();
  ASSERT_TRUE(becomes(PortState::open, 2000));
  port_.send("?");
  EXPECT_EQ(meter_reads(), "?");
  ASSERT_EQ(meter_writes("answer"), 6u);
  EXPECT_EQ(port_.receive(), "answer");
}

// The user tried another port while the adapter was pulled; the program goes back to the first one.
TEST_F(QtSerialPortTest, APortThatCouldNotBeOpenedAgainIsLookedForUntilItIsClosed) {
  unplug();
  EXPECT_EQ(port_.open(number), PortRefusal::missing);
  EXPECT_EQ(port_.state(), PortState::closed);
  port_.keep_looking(number);
  EXPECT_EQ(port_.state(), PortState::vanished);
  plug_in();
  EXPECT_TRUE(becomes(PortState::open, 2000));
  unplug();
  ASSERT_TRUE(becomes(PortState::vanished, 1000));
  port_.close();
  plug_in();
  run_events_for(1200);
  EXPECT_EQ(port_.state(), PortState::closed);
}

}  // namespace
}  // namespace halden
