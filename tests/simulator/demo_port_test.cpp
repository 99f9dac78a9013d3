#include "simulator/demo_port.h"

#include <gtest/gtest.h>

#include "platform/virtual/scripted_port.h"
#include "simulator/simulated_port.h"

namespace halden::simulator {
namespace {

TEST(DemoPort, SendsOnlyNumberOneToTheMeter) {
  VirtualWorld world;
  Meter meter;
  SimulatedPort simulated{world.clock, meter};
  ScriptedPort real{world};
  DemoPort demo(simulated, real);
  EXPECT_EQ(demo.device_name(1) + ", " + demo.device_name(7), "simulated meter, script 7");
  real.refusals[1] = real.refusals[8] = PortRefusal::missing;
  EXPECT_TRUE(demo.present(1) && demo.present(7) && !demo.present(8));

  demo.open(1);
  demo.send("?");
  EXPECT_EQ(meter.log().size(), 1U);
  demo.open(7);
  EXPECT_EQ(simulated.state(), PortState::closed);
  real.answer("W", "real");
  demo.send("W");
  world.run_for(0.1);
  EXPECT_EQ(demo.receive(), "real");
  demo.open(1);
  EXPECT_EQ(real.state(), PortState::closed);
  EXPECT_EQ(demo.receive(), "") << "what came for the old program is lost";
}

}  // namespace
}  // namespace halden::simulator
