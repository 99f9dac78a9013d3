#include "platform/qt/core/qt_serial_port.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <ctime>
#include <memory>

#include "pty_line.h"
#include "qt_events.h"
#include "unprivileged.h"

namespace halden {
namespace {

PortTable table_with(const std::string& device, int number = 1) {
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

class QtSerialPortTest : public testing::Test {
 protected:
  std::string path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }

  // A meter behind a symbolic link. The link goes before the meter does: the system gives the name of a dead
  // pseudo-terminal to the next one, which may be another test's.
  void plug_in() {
    meter_ = std::make_unique<PtyLine>();
    ASSERT_EQ(symlink(meter_->device().c_str(), link_.c_str()), 0);
  }
  void unplug() {
    ASSERT_EQ(unlink(link_.c_str()), 0);
    meter_->hang_up();
  }

  QTemporaryDir folder_;
  const std::string link_ = path("plugged_meter");
  std::unique_ptr<PtyLine> meter_;
};

TEST_F(QtSerialPortTest, RefusalsNameTheirCause) {
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  ASSERT_EQ(symlink("nowhere", path("dangling").c_str()), 0);
  ASSERT_EQ(symlink("/dev/null", path("null").c_str()), 0);
  const int file = ::open(path("file").c_str(), O_CREAT | O_WRONLY, 0600);
  ASSERT_GE(file, 0);
  ::close(file);

  const struct {
    std::string device;
    PortRefusal refusal;
    bool present;
  } rows[] = {
      {"/dev/there_is_no_such_line", PortRefusal::missing, false},
      {path("dangling"), PortRefusal::missing, false},
      {path("file") + "/below_a_file", PortRefusal::missing, false},
      {path("file"), PortRefusal::not_serial, true},
      {path("fifo"), PortRefusal::not_serial, true},
      {folder_.path().toStdString(), PortRefusal::not_serial, true},
      {"/dev/null", PortRefusal::not_serial, true},
      {path("null"), PortRefusal::not_serial, true},
  };
  for (const auto& row : rows) {
    QtSerialPort port(table_with(row.device));
    EXPECT_EQ(port.open(1), row.refusal) << row.device;
    EXPECT_EQ(port.state(), PortState::closed) << row.device;
    EXPECT_EQ(port.present(1), row.present) << row.device;
  }
}

TEST_F(QtSerialPortTest, NumbersOutsideTheTableAreInvalidAndClose) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device(), 16));
  for (const int number : {0, 17, -1}) {
    EXPECT_EQ(port.open(16), PortRefusal::none);
    EXPECT_EQ(port.open(number), PortRefusal::invalid_number) << number;
    EXPECT_EQ(port.state(), PortState::closed) << number;
    EXPECT_FALSE(port.present(number)) << number;
    EXPECT_EQ(port.device_name(number), "") << number;
  }
  EXPECT_EQ(port.device_name(16), meter.device());
}

TEST_F(QtSerialPortTest, ADeviceWithoutPermissionIsForbidden) {
  PtyLine meter;
  ASSERT_EQ(chmod(meter.device().c_str(), 0), 0);
  const int refusal = run_unprivileged([&] { return QtSerialPort(table_with(meter.device())).open(1); });
  EXPECT_EQ(static_cast<PortRefusal>(refusal), PortRefusal::forbidden);
}

// The second name matters: a lock per name alone would let two programs share the line.
TEST_F(QtSerialPortTest, ADeviceInUseIsRefusedUnderEveryName) {
  PtyLine meter;
  ASSERT_EQ(symlink(meter.device().c_str(), path("meter").c_str()), 0);
  QtSerialPort first(table_with(meter.device()));
  ASSERT_EQ(first.open(1), PortRefusal::none);
  for (const std::string& name : {meter.device(), path("meter")}) {
    QtSerialPort second(table_with(name));
    EXPECT_EQ(second.open(1), PortRefusal::in_use) << name;
  }
  first.close();
  QtSerialPort second(table_with(path("meter")));
  EXPECT_EQ(second.open(1), PortRefusal::none);
}

TEST_F(QtSerialPortTest, OpeningAnotherNumberClosesTheFirst) {
  PtyLine meter1;
  PtyLine meter2;
  PortTable table = table_with(meter1.device(), 1);
  table.override_device(2, meter2.device());
  QtSerialPort port(table);
  ASSERT_EQ(port.open(1), PortRefusal::none);
  ASSERT_EQ(port.open(2), PortRefusal::none);
  port.send("?");
  EXPECT_EQ(meter1.read(), "");
  EXPECT_EQ(meter2.read(), "?");
  QtSerialPort other(table);
  EXPECT_EQ(other.open(1), PortRefusal::none);
}

TEST_F(QtSerialPortTest, ReceivesEveryByteValueInPieces) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device()));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  EXPECT_EQ(port.receive(), "");
  EXPECT_EQ(port.received_count(), 0u);

  const std::string sent = all_bytes(512);
  ASSERT_EQ(meter.write_some(std::string_view(sent).substr(0, 200)), 200u);
  EXPECT_EQ(port.received_count(), 200u);
  ASSERT_EQ(meter.write_some(std::string_view(sent).substr(200)), 312u);
  EXPECT_EQ(port.received_count(), 512u);
  EXPECT_EQ(port.receive(), sent);
  EXPECT_EQ(port.received_count(), 0u);
  EXPECT_EQ(port.receive(), "");
}

TEST_F(QtSerialPortTest, SixtyThousandBytesArriveWithoutTheEventLoop) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device()));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  const std::string sent = all_bytes(60000);
  std::string received;
  std::size_t written = 0;
  const QDeadlineTimer deadline(10000);
  while (received.size() < sent.size() && !deadline.hasExpired()) {
    written += meter.write_some(std::string_view(sent).substr(written));
    received += port.receive();
  }
  EXPECT_TRUE(received == sent) << received.size() << " bytes arrived";
}

// Under the event loop Qt buffers without limit; a call of ours must still stay bounded, and lose nothing.
TEST_F(QtSerialPortTest, AFloodComesInBoundedPieces) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device()));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  const std::string sent = all_bytes(300000);
  std::size_t written = 0;
  ASSERT_TRUE(run_events_until([&] {
    written += meter.write_some(std::string_view(sent).substr(written));
    return written == sent.size();
  }));
  std::string received;
  const QDeadlineTimer deadline(10000);
  while (received.size() < sent.size() && !deadline.hasExpired()) {
    EXPECT_LE(port.received_count(), 65536u);
    const std::string piece = port.receive();
    EXPECT_LE(piece.size(), 65536u);
    received += piece;
  }
  EXPECT_TRUE(received == sent) << received.size() << " bytes arrived";
}

TEST_F(QtSerialPortTest, SendsAtOnceAndUnchanged) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device()));
  port.send("dropped");
  ASSERT_EQ(port.open(1), PortRefusal::none);
  const std::string sent = all_bytes(256);
  port.send(sent);
  EXPECT_EQ(meter.read(), sent);
  port.close();
  port.send("dropped");
  EXPECT_EQ(meter.read(), "");
}

// A meter that does not read fills the output buffer, which Qt reports like a lost device.
TEST_F(QtSerialPortTest, AFullOutputBufferIsNoFault) {
  PtyLine meter;
  QtSerialPort port(table_with(meter.device()));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  const std::string sent = all_bytes(100000);
  for (std::size_t from = 0; from < sent.size(); from += 10000) port.send(sent.substr(from, 10000));
  EXPECT_EQ(port.state(), PortState::open);
  std::string arrived;
  EXPECT_TRUE(run_events_until([&] { return (arrived += meter.read()).size() >= sent.size(); }));
  EXPECT_TRUE(arrived == sent) << arrived.size() << " bytes arrived";
  EXPECT_EQ(port.state(), PortState::open);
}

TEST_F(QtSerialPortTest, AHangUpIsNoticedWithinASecondAndCostsNothing) {
  plug_in();
  QtSerialPort port(table_with(link_));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  unplug();
  EXPECT_TRUE(run_events_until([&] { return port.state() == PortState::vanished; }, 1000));
  const std::clock_t began = std::clock();
  run_events_for(1000);
  const double used_s = static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC;
  EXPECT_LT(used_s, 0.2);
  EXPECT_EQ(port.state(), PortState::vanished);
  EXPECT_FALSE(port.present(1));
}

// A wait without a running event loop must notice as well, and keep what had arrived before.
TEST_F(QtSerialPortTest, AHangUpIsNoticedBySendAndReceive) {
  PtyLine meter1;
  QtSerialPort port(table_with(meter1.device()));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  meter1.write_some("last words");
  ASSERT_EQ(port.received_count(), 10u);
  meter1.hang_up();
  port.received_count();
  EXPECT_EQ(port.state(), PortState::vanished);
  EXPECT_EQ(port.receive(), "last words");
  EXPECT_EQ(port.receive(), "");

  PtyLine meter2;
  QtSerialPort other(table_with(meter2.device()));
  ASSERT_EQ(other.open(1), PortRefusal::none);
  meter2.hang_up();
  other.send("?");
  EXPECT_EQ(other.state(), PortState::vanished);
}

TEST_F(QtSerialPortTest, AVanishedPortComesBackUnderTheSameNumber) {
  plug_in();
  QtSerialPort port(table_with(link_, 3));
  ASSERT_EQ(port.open(3), PortRefusal::none);
  for (int round = 0; round < 2; ++round) {
    unplug();
    ASSERT_TRUE(run_events_until([&] { return port.state() == PortState::vanished; }, 1000));
    port.send("dropped");
    EXPECT_EQ(port.receive(), "");
    plug_in();
    ASSERT_TRUE(run_events_until([&] { return port.state() == PortState::open; }, 2000));
    port.send("?");
    EXPECT_EQ(meter_->read(), "?");
    ASSERT_EQ(meter_->write_some("answer"), 6u);
    EXPECT_EQ(port.receive(), "answer");
  }
}

// The user tried another port while the adapter was pulled; the program goes back to the first one.
TEST_F(QtSerialPortTest, APortThatCouldNotBeOpenedAgainIsLookedForWhenAsked) {
  plug_in();
  QtSerialPort port(table_with(link_));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  unplug();
  EXPECT_EQ(port.open(1), PortRefusal::missing);
  EXPECT_EQ(port.state(), PortState::closed);
  port.keep_looking(1);
  EXPECT_EQ(port.state(), PortState::vanished);
  plug_in();
  EXPECT_TRUE(run_events_until([&] { return port.state() == PortState::open; }, 2000));
}

TEST_F(QtSerialPortTest, ClosingAVanishedPortEndsTheSearch) {
  plug_in();
  QtSerialPort port(table_with(link_));
  ASSERT_EQ(port.open(1), PortRefusal::none);
  unplug();
  ASSERT_TRUE(run_events_until([&] { return port.state() == PortState::vanished; }, 1000));
  port.close();
  EXPECT_EQ(port.state(), PortState::closed);
  plug_in();
  run_events_for(1200);
  EXPECT_EQ(port.state(), PortState::closed);
}

}  // namespace
}  // namespace halden
