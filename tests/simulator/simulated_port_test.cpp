#include "simulator/simulated_port.h"

#include <gtest/gtest.h>

#include "platform/virtual/scripted_port.h"
#include "simulator/demo_port.h"

namespace halden {
namespace {

struct SimulatedPortTest : testing::Test {
  VirtualWorld world;
  Meter meter;
  SimulatedPort port{world.clock, meter};
};

TEST_F(SimulatedPortTest, OpensOneToSixteenUnlessRefused) {
  port.refuse(4, PortRefusal::in_use);
  port.refuse(5, PortRefusal::missing);
  const struct {
    int number;
    PortRefusal refusal;
    bool present;
    const char* name;
  } cases[] = {
      {1, PortRefusal::none, true, "simulated meter"},   {16, PortRefusal::none, true, "simulated meter"},
      {4, PortRefusal::in_use, true, "simulated meter"}, {5, PortRefusal::missing, false, "simulated meter"},
      {0, PortRefusal::invalid_number, false, ""},       {17, PortRefusal::invalid_number, false, ""},
      {-1, PortRefusal::invalid_number, false, ""}};
  for (const auto& [number, refusal, present, name] : cases) {
    port.open(1);
    EXPECT_EQ(port.open(number), refusal) << number;
    EXPECT_EQ(port.state(), refusal == PortRefusal::none ? PortState::open : PortState::closed) << number;
    EXPECT_EQ(port.present(number), present) << number;
    EXPECT_EQ(port.device_name(number), name) << number;
  }
  port.refuse(4, PortRefusal::none);
  EXPECT_EQ(port.open(4), PortRefusal::none);
}

TEST_F(SimulatedPortTest, ReceivesWhatHasArrivedWhileOpen) {
  port.send(" ");
  EXPECT_TRUE(meter.log().empty());
  port.open(1);
  port.send(" ");
  world.run_for(0.02 + 78.5 / 960);
  EXPECT_EQ(port.received_count(), 78U);
  EXPECT_EQ(port.receive().size(), 78U);
  port.close();
  world.run_for(1.0);
  port.open(1);
  EXPECT_EQ(port.receive(), "") << "the rest of the 159 came while it was closed";

  meter.faults().endless_stream = true;
  for (int i = 0; i < 500; ++i) {
    world.run_for(1.0);
    port.received_count();
  }
  EXPECT_EQ(port.receive().size(), 65536U);
}

TEST_F(SimulatedPortTest, VanishesAndComesBackByItself) {
  port.open(3);
  port.send("?");
  world.run_for(0.02 + 50.5 / 960);
  port.unplug();
  EXPECT_EQ(port.state(), PortState::vanished);
  EXPECT_FALSE(port.present(3));
  EXPECT_EQ(port.received_count(), 0U);
  port.send(" ");
  world.run_for(50.0 / 960);
  EXPECT_EQ(port.receive(), "");
  port.plug_in();
  EXPECT_EQ(port.state(), PortState::open);
  world.run_for(1.0);
  EXPECT_EQ(port.receive().size(), 110U);  // the rest of the 210
  EXPECT_EQ(meter.log().size(), 1U);
  port.unplug();
  EXPECT_EQ(port.open(1), PortRefusal::missing);
  EXPECT_EQ(port.state(), PortState::closed);
}

TEST_F(SimulatedPortTest, DemoSendsOnlyNumberOneToTheMeter) {
  ScriptedPort real{world};
  DemoPort demo(port, real);
  EXPECT_EQ(demo.state(), PortState::closed);
  EXPECT_EQ(demo.device_name(1) + ", " + demo.device_name(7), "simulated meter, script 7");
  real.refusals[1] = real.refusals[8] = PortRefusal::missing;
  EXPECT_TRUE(demo.present(1) && demo.present(7) && !demo.present(8));

  demo.open(1);
  demo.send("?");
  EXPECT_EQ(meter.log().size(), 1U);
  demo.open(7);
  EXPECT_EQ(port.state(), PortState::closed);
  EXPECT_EQ(real.opened, std::vector{7});
  real.answer("W", "real");
  demo.send("W");
  world.run_for(0.1);
  EXPECT_EQ(demo.receive(), "real");
  demo.open(1);
  EXPECT_EQ(real.state(), PortState::closed);
  EXPECT_EQ(demo.state(), PortState::open);
}

}  // namespace
}  // namespace halden
