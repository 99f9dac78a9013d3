#include "platform/port_table.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

#ifndef _WIN32
TEST(PortTable, NamesTheDevicesOfAllSixteenPorts) {
  const std::pair<int, const char*> rows[] = {{0, ""},
                                              {1, "/dev/ttyUSB0"},
                                              {5, "/dev/ttyACM0"},
                                              {9, "/dev/ttyS0"},
                                              {12, "/dev/ttyS3"},
                                              {13, "/dev/rfcomm0"},
                                              {16, "/dev/rfcomm3"},
                                              {17, ""}};
  for (const auto& [number, device] : rows) EXPECT_EQ(PortTable().device(number), device) << number;
}
#endif

TEST(PortTable, AnOverrideReplacesOneEntry) {
  PortTable table;
  for (const int number : {2, 0, 17}) table.override_device(number, "/tmp/meter");
  EXPECT_EQ(table.device(2), "/tmp/meter");
  EXPECT_EQ(table.device(3), PortTable().device(3));
  EXPECT_EQ(table.device(0) + table.device(17), "");
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
