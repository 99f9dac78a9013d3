#include "logger/power_conversion.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace halden {
namespace {

// Voltage, current, active power and both angles of a phase.
using StoredGroup = std::array<std::int16_t, 5>;

// The lines without the blanks that align them.
std::vector<std::string> convert(PowerConversion& conversion, const std::vector<StoredGroup>& groups) {
  std::vector<std::string> lines;
  const auto keep = [&](std::optional<RecordLine> line) {
    if (line) std::erase(lines.emplace_back(line->text), ' ');
  };
  for (const StoredGroup& group : groups)
    for (const std::int16_t word : group) keep(conversion.take(word));
  keep(conversion.finish());
  return lines;
}

// 230 V and 5 A are 1150 VA; two records are a demand period. One that feeds back (0.6 x 1150 = 690 W), one
// with an over-range current, one whose W of -2 exceeds its VA of -1, which is a number and no over range,
// and one of 1150 W. Energies are sums x 30 / 3600: (-690, 1150, 920), then W 0, -1, 1149, VA 1151, 2301.
TEST(PowerConversion, EnergiesAndDemandsFollowTheRecords) {
  PowerConversion conversion(
      {{1, 1, 1.0f, 1, Wiring::w1p2w, 1, ProductLimit::none}, 30, 1, 3, "2024-02-28", "23:59:30"});
  EXPECT_TRUE(conversion.header().starts_with("1P2W,Hz=50,MD=1,SEC=30,CT=1,VT=1,INPUT=I2\r\n      DATE,"));
  const std::vector<std::string> expected = {
      "2024-02-28,23:59:30,230.0V,5.000A,126.9,-0.690KW,1.150KVA,0.920KVAR,-0.60,"
      "-0.006KWH,0.010KVAH,0.008KVARH,-0.60H,,,------,------,",
      "2024-02-29,00:00:00,230.0V,OL,OL,0.690KW,OL,OL,OL,0.000KWH,OL,OL,-0.60H,0.000KW,OL,0.000KW,OL,",
      "2024-02-29,00:00:30,230.0V,0.005A,-180.0,-0.001KW,0.001KVA,0.000KVAR,-1.00,"
      "0.000KWH,0.010KVAH,0.008KVARH,0.00H,0.000KW,OL,0.000KW,OL,",
      "2024-02-29,00:01:00,230.0V,5.000A,000.0,1.150KW,1.150KVA,0.000KVAR,1.00,"
      "0.010KWH,0.019KVAH,0.008KVARH,0.49H,0.575KW,0.576KVA,0.575KW,0.576KVA,"};
  const std::vector<StoredGroup> groups = {{2300, 5000, -690, 0, -1269},
                                           {2300, -1, 690, 0, -300},
                                           {2300, 5, -2, 0, 1800},
                                           {2300, 5000, 1150, 0, 0}};
  EXPECT_EQ(convert(conversion, groups), expected);
}

// Phase 1: 2300 VA (in tenths), W 0.8 of it, VAR 0.6 of it. Phase 2 is dead, whatever its angles. Phase 3: W
// 2400 is above VA 2300, which counts from there on. V31 is 230 V x 1.732.
TEST(PowerConversion, ARecordCutShortHoldsWhatArrivedAndNothingElse) {
  PowerConversion conversion(
      {{1, 1, 1.0f, 0, Wiring::w3p4w, 15, ProductLimit::none}, 2, 0, 0, "2023-12-31", "23:59:58"});
  EXPECT_EQ(conversion.header(),
            "3P4W,Hz=Auto,MD=15,SEC=2,CT=1,VT=1,INPUT=V1\r\n" + conversion.logger_write_header() + "\r\n");
  EXPECT_EQ(conversion.logger_write_header().size(), 417u);
  const StoredGroup one = {2300, 10000, 1840, 0, -369};
  const StoredGroup dead = {0, 0, 0, -1200, -999};
  EXPECT_EQ(convert(conversion, {one, dead, {2300, 10000, 2400, 1200, 1200}, one, dead}),
            (std::vector<std::string>{
                "2023-12-31,23:59:58,230.0V,230.0V,398.3V,230.0V,000.0V,230.0V,1.000A,000.0mA,1.000A,"
                "184.0W,000.0W,240.0W,230.0VA,000.0VA,230.0VA,138.0VAR,000.0VAR,000.0VAR,0.80,0.00,1.00,"
                "036.9,000.0,000.0,414.0W,436.4VA,138.0VAR,0.94,000.2WH,000.2VAH,000.1VARH,0.94H,"
                ",,------,------,",
                "2024-01-01,00:00:00,,,,230.0V,000.0V,,1.000A,000.0mA,,184.0W,000.0W,,230.0VA,000.0VA,,"
                "138.0VAR,000.0VAR,,0.80,0.00,,036.9,000.0,,,,,,,,,,,,,,"}));
}

// 20000 and 30000 x CT 1000 x PT 1000 are far beyond 32 bits.
TEST(PowerConversion, NoFieldRepeatsAnEarlierRecord) {
  PowerConversion conversion(
      {{1000, 1000, 1.0f, 0, Wiring::w1p3w, 15, ProductLimit::none}, 2, 2, 0, "2024-03-15", ""});
  const StoredGroup other = {10000, 10000, 5000, 0, 0};
  const auto lines =
      convert(conversion, {{30000, 30000, 20000, 0, 0}, other, {20000, 30000, -30000, 0, 0}, other});
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].substr(0, 62), ",,3.000MV,1.000MV,3.000KA,1.000KA,2.000GW,500.0MW,9.000GVA,1.0");
  EXPECT_EQ(lines[1].substr(0, 61), ",,2.000MV,1.000MV,3.000KA,1.000KA,-3.000GW,500.0MW,-6.000GVA,");
}

}  // namespace
}  // namespace halden
