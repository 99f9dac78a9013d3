#include "platform/port_table.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(PortTable, NamesTheDevicesOfAllSixteenPortsUnlessOverridden) {
  PortTable table;
  for (const int number : {2, 0, 17}) table.override_device(number, "/tmp/meter");
  const std::pair<int, const char*> rows[] = {
      {0, ""},           {1, "/dev/ttyUSB0"}, {2, "/tmp/meter"},    {3, "/dev/ttyUSB2"},  {5, "/dev/ttyACM0"},
      {9, "/dev/ttyS0"}, {12, "/dev/ttyS3"},  {13, "/dev/rfcomm0"}, {16, "/dev/rfcomm3"}, {17, ""}};
  for (const auto& [number, device] : rows) EXPECT_EQ(table.device(number), device) << number;
}

TEST(PortTable, ReadsOverrides) {
  EXPECT_EQ(parse_port_override("1=/dev/ttyUSB7"), std::pair(1, std::string("/dev/ttyUSB7")));
  EXPECT_EQ(parse_port_override("16=a b=c"), std::pair(16, std::string("a b=c")));
  for (const char* text : {"0=/dev/x", "17=/dev/x", "-1=/dev/x", "99999999999=/dev/x", "1=", "1", "",
                           "=/dev/x", "COM1=/dev/x", "1 =/dev/x", "1:/dev/x"})
    EXPECT_EQ(parse_port_override(text), std::nullopt) << text;
}

}  // namespace
}  // namespace halden
