#include "simulator/simulated_port.h"

#include <gtest/gtest.h>

#include "simulator/demo_port.h"

namespace halden {
namespace {

class HandClock : public Clock {
 public:
  double now_s = 100.0;
  double seconds_since_midnight() const override { return now_s; }
  double monotonic_s() const override { return now_s; }
  Date today() const override { return {}; }
  std::string short_date() const override { return {}; }
  void pause(Yield, double at_most_s) override { now_s += at_most_s; }
  void run_later(std::function<void()>) override {}
};

struct SimulatedPortTest : testing::Test {
  HandClock clock;
  Meter meter;
  SimulatedPort port{clock, meter};
};

TEST_F(SimulatedPortTest, OpensOneToSixteenUnlessRefused) {
  port.refuse(4, PortRefusal::in_use);
  const std::pair<int, PortRefusal> cases[] = {{1, PortRefusal::none},
                                               {16, PortRefusal::none},
                                               {0, PortRefusal::invalid_number},
                                               {17, PortRefusal::invalid_number},
                                               {-1, PortRefusal::invalid_number},
                                               {4, PortRefusal::in_use}};
  for (const auto& [number, refusal] : cases) {
    port.open(1);
    EXPECT_EQ(port.open(number), refusal) << number;
    EXPECT_EQ(port.state(), refusal == PortRefusal::none ? PortState::open : PortState::closed) << number;
  }
  port.refuse(4, PortRefusal::none);
  EXPECT_EQ(port.open(4), PortRefusal::none);
}

TEST_F(SimulatedPortTest, NamesItsDevice) {
  port.refuse(2, PortRefusal::missing);
  EXPECT_EQ(port.device_name(1), "simulated meter");
  EXPECT_EQ(port.device_name(17), "");
  EXPECT_TRUE(port.present(1));
  EXPECT_FALSE(port.present(2));
  EXPECT_FALSE(port.present(0));
}

TEST_F(SimulatedPortTest, ReceivesWhatHasArrivedByNow) {
  port.open(1);
  port.send(" ");
  clock.now_s = 100.02 + 78.5 / 960;
  EXPECT_EQ(port.received_count(), 78U);
  EXPECT_EQ(port.receive().size(), 78U);
  clock.now_s = 101.0;
  EXPECT_EQ(port.receive().size(), 81U);  // the rest of the 159
  EXPECT_EQ(port.received_count(), 0U);
}

TEST_F(SimulatedPortTest, WhatComesWhileClosedIsLost) {
  port.send(" ");
  EXPECT_TRUE(meter.log().empty());
  port.open(1);
  port.send(" ");
  port.close();
  clock.now_s = 101.0;
  port.open(1);
  EXPECT_EQ(port.receive(), "");
}

TEST_F(SimulatedPortTest, VanishesAndComesBackByItself) {
  port.open(3);
  port.send("?");
  clock.now_s = 100.02 + 50.5 / 960;
  port.unplug();
  EXPECT_EQ(port.state(), PortState::vanished);
  EXPECT_FALSE(port.present(3));
  EXPECT_EQ(port.received_count(), 0U);
  port.send(" ");
  clock.now_s = 100.02 + 100.5 / 960;
  EXPECT_EQ(port.receive(), "");
  port.plug_in();
  EXPECT_EQ(port.state(), PortState::open);
  clock.now_s = 101.0;
  EXPECT_EQ(port.receive().size(), 110U);  // the rest of the 210
  EXPECT_EQ(meter.log().size(), 1U);
}

TEST_F(SimulatedPortTest, APulledAdapterCannotBeOpened) {
  port.unplug();
  EXPECT_EQ(port.state(), PortState::closed);
  EXPECT_EQ(port.open(1), PortRefusal::missing);
}

TEST_F(SimulatedPortTest, BufferIsBounded) {
  port.open(1);
  meter.faults().endless_stream = true;
  for (int i = 0; i < 500; ++i) {
    clock.now_s += 1.0;
    port.received_count();
  }
  EXPECT_EQ(port.receive().size(), 65536U);
}

// Only remembers what was asked of it.
class RealPort : public SerialPort {
 public:
  int number = 0;
  std::string sent;
  PortRefusal open(int n) override { return number = n, PortRefusal::none; }
  void close() override { number = 0; }
  void keep_looking(int n) override { number = n; }
  PortState state() const override { return number == 0 ? PortState::closed : PortState::open; }
  void send(std::string_view bytes) override { sent += bytes; }
  std::string receive() override { return "real"; }
  std::size_t received_count() override { return 4; }
  std::string device_name(int n) const override { return "tty" + std::to_string(n); }
  bool present(int n) const override { return n == 7; }
};

TEST_F(SimulatedPortTest, DemoSendsOnlyNumberOneToTheMeter) {
  RealPort real;
  DemoPort demo(port, real);
  EXPECT_EQ(demo.state(), PortState::closed);
  EXPECT_EQ(demo.device_name(1), "simulated meter");
  EXPECT_EQ(demo.device_name(7), "tty7");
  EXPECT_TRUE(demo.present(7));
  EXPECT_FALSE(demo.present(8));

  demo.open(1);
  demo.send("?");
  EXPECT_EQ(meter.log().size(), 1U);
  demo.open(7);
  EXPECT_EQ(port.state(), PortState::closed);
  EXPECT_EQ(real.number, 7);
  demo.send("W");
  EXPECT_EQ(real.sent, "W");
  EXPECT_EQ(demo.receive(), "real");
  demo.open(1);
  EXPECT_EQ(real.number, 0);
  EXPECT_EQ(demo.state(), PortState::open);
}

}  // namespace
}  // namespace halden
