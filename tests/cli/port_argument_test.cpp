#include "cli/port_argument.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(PortArgument, NumbersDevicesAndTheDemo) {
  struct Case {
    const char* text;
    bool simulated;
    int number;
    const char* device;
  };
  for (const Case& c : {Case{"1", false, 1, ""}, Case{"16", false, 16, ""}, Case{"demo", true, 1, ""},
                        Case{"/dev/ttyUSB3", false, 1, "/dev/ttyUSB3"},
                        Case{"links/the meter", false, 1, "links/the meter"}}) {
    const auto port = parse_port_argument(c.text);
    ASSERT_TRUE(port) << c.text;
    EXPECT_EQ(port->simulated, c.simulated) << c.text;
    EXPECT_EQ(port->number, c.number) << c.text;
    EXPECT_EQ(port->device, c.device) << c.text;
  }
}

TEST(PortArgument, AnythingElseIsRefused) {
  for (const char* text : {"", "0", "17", "-1", "1 ", " 1", "1x", "ttyUSB0", "Demo", "99999999999"})
    EXPECT_FALSE(parse_port_argument(text)) << text;
}

}  // namespace
}  // namespace halden
