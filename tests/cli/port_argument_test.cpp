#include "cli/port_argument.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(PortArgument, NumbersDevicesTheDemoAndNothingElse) {
  const std::tuple<const char*, bool, int, const char*> rows[] = {
      {"1", false, 1, ""},
      {"16", false, 16, ""},
      {"demo", true, 1, ""},
      {"/dev/ttyUSB3", false, 1, "/dev/ttyUSB3"},
      {"links/the meter", false, 1, "links/the meter"}};
  for (const auto& [text, simulated, number, device] : rows) {
    const auto port = parse_port_argument(text);
    ASSERT_TRUE(port) << text;
    EXPECT_EQ(port->simulated, simulated) << text;
    EXPECT_EQ(port->number, number) << text;
    EXPECT_EQ(port->device, device) << text;
  }
  for (const char* text : {"", "0", "17", "-1", "1 ", " 1", "1x", "ttyUSB0", "Demo", "99999999999"})
    EXPECT_FALSE(parse_port_argument(text)) << text;
}

}  // namespace
}  // namespace halden
