#include "platform/port_table.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

#ifndef _WIN32
TEST(PortTable, NamesTheDevicesOfAllSixteenPorts) {
  const PortTable table;
  const std::pair<int, const char*> rows[] = {
      {1, "/dev/ttyUSB0"},
      {4, "/dev/ttyUSB3"},
      {5, "/dev/ttyACM0"},
      {8, "/dev/ttyACM3"},
      {9, "/dev/ttyS0"},
      {12, "/dev/ttyS3"},
      {13, "/dev/rfcomm0"},
      {16, "/dev/rfcomm3"},
      {0, ""},
      {17, ""},
      {-1, ""},
  };
  for (const auto& [number, device] : rows) EXPECT_EQ(table.device(number), device) << number;
}
#endif

TEST(PortTable, AnOverrideReplacesOneEntry) {
  PortTable table;
  const std::string neighbour = table.device(3);
  table.override_device(2, "/tmp/meter");
  table.override_device(0, "/tmp/nobody");
  table.override_device(17, "/tmp/nobody");
  EXPECT_EQ(table.device(2), "/tmp/meter");
  EXPECT_EQ(table.device(3), neighbour);
  EXPECT_EQ(table.device(0), "");
  EXPECT_EQ(table.device(17), "");
}

TEST(PortTable, ReadsOverrides) {
  const struct {
    const char* text;
    std::optional<std::pair<int, std::string>> expected;
  } rows[] = {
      {"1=/dev/ttyUSB7", {{1, "/dev/ttyUSB7"}}},
      {"16=a b=c", {{16, "a b=c"}}},
      {"0=/dev/x", {}},
      {"17=/dev/x", {}},
      {"-1=/dev/x", {}},
      {"99999999999=/dev/x", {}},
      {"1=", {}},
      {"1", {}},
      {"", {}},
      {"=/dev/x", {}},
      {"COM1=/dev/x", {}},
      {"1 =/dev/x", {}},
      {"1:/dev/x", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(parse_port_override(row.text), row.expected) << row.text;
}

}  // namespace
}  // namespace halden
