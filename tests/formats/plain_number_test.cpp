#include "formats/plain_number.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace halden {
namespace {

std::string plain(std::string_view field, char point = '.') {
  std::array<char, longest_plain_number> room;
  return {room.data(), write_plain_number(field, point, room.data())};
}

TEST(PlainNumber, OnlyThePointMoves) {
  // Right-aligned in ten characters, as they stand in a record.
  const std::pair<std::string_view, std::string_view> rows[] = {{"    230.1V", "230.1"},
                                                                {"   2.410KW", "2410"},
                                                                {"   999.9mA", "0.9999"},
                                                                {"   000.5mA", "0.0005"},
                                                                {"   1.000mA", "0.001000"},
                                                                {"  12.34mA", "0.01234"},
                                                                {"    1.000A", "1.000"},
                                                                {"    0.005A", "0.005"},
                                                                {"    999.9W", "999.9"},
                                                                {" -0.045KVA", "-45"},
                                                                {"-0.045KVAR", "-45"},
                                                                {"0.045KVARH", "45"},
                                                                {"-1.250KVAR", "-1250"},
                                                                {"  -12.34KW", "-12340"},
                                                                {"   123.4KV", "123400"},
                                                                {"   1.234MW", "1234000"},
                                                                {" 12.34MVAR", "12340000"},
                                                                {"123.4GVARH", "123400000000"},
                                                                {"  9.999TVA", "9999000000000"},
                                                                {"      0.95", "0.95"},
                                                                {"     -0.95", "-0.95"},
                                                                {"     0.50H", "0.50"},
                                                                {"     030.5", "30.5"},
                                                                {"    -010.0", "-10.0"},
                                                                {"     000.0", "0.0"},
                                                                {"   0.000KW", "0"},
                                                                {"      50Hz", "50"},
                                                                {"    59.9Hz", "59.9"},
                                                                {"    100.0%", "100.0"},
                                                                {"       7.5", "7.5"},
                                                                {"   000.0KW", "0"},
                                                                {"000.0KVARH", "0"},
                                                                {"     123.W", "123"},
                                                                {"    1234KW", "1234000"},
                                                                {"       .5A", "0.5"},
                                                                {"12.3456KW", "12345.6"}};
  for (const auto& [field, number] : rows) EXPECT_EQ(plain(field), number) << field;
  EXPECT_EQ(plain("   999.9mA", ','), "0,9999");
  EXPECT_EQ(plain("    230.1V", ','), "230,1");
  EXPECT_EQ(plain("   2.410KW", ','), "2410");
  EXPECT_EQ(plain("-1234567890.5"), "-1234567890.5") << "longer than a field";
}

TEST(PlainNumber, WhatHasNoDigitsIsNoNumber) {
  for (const std::string_view field :
       {"      OL  ", "       OL ", "    ------", "          ", "", "-", "         -", "         V",
        "      AUTO", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", "1234567890123456789"})
    EXPECT_EQ(plain(field), "") << field;
}

}  // namespace
}  // namespace halden
