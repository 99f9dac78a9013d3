#include "formats/power_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "formats/file_headers.h"
#include "formats/record_field.h"
#include "screen/main_window.h"

namespace halden {
namespace {

// The format's own spacing, the uneven places included.
const std::string demand_names = "     W(AD),    VA(AD),     W(MD),    VA(MD)";
const std::string system_names =
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,     WH_SYS,  VAH_SYS,  VARH_SYS,   PFH_SYS,";
const std::string system_panels =
    " W_sys VA_sys VAR_sys PF_sys WH_sys VAH_sys VARH_sys PFH_sys W_AD VA_AD W_MD VA_MD";

// Column by column, the panel of every name; a record is right when each stands where its name does.
TEST(PowerFile, EveryPanelStandsUnderItsName) {
  const struct {
    std::int16_t wiring;
    std::string names;
    std::string panels;  // without DATE and TIME
  } cases[] = {
      {0, "      DATE,      TIME,        V1,        I1,    Phase1," + system_names + demand_names,
       "V1 I1 Phase1" + system_panels},
      {1,
       "      DATE,      TIME,        V1,        V2,        I1,        I2,         P1,       P2, '"
       "        S1,        S2,        Q1,        Q2,       PF1,       PF2,    Phase1,    Phase2," +
           system_names + demand_names,
       "V1 V2 I1 I2 W1 W2 VA1 VA2 VAR1 VAR2 PF1 PF2 Phase1 Phase2" + system_panels},
      {2,
       "      DATE,      TIME,       V12,       V23,       V31,        I1,         I2,       I3," +
           system_names + demand_names,
       "V12 V23 V31 I1 I2 I3" + system_panels},
      {3,
       "      DATE,      TIME,       V12,       V23,       V31,        V1,        V2,        V3,"
       "        I1,        I2,        I3,        P1,        P2,        P3,"
       "        S1,        S2,        S3,        Q1,        Q2,        Q3,"
       "       PF1,       PF2,       PF3,    Phase1,    Phase2,    Phase3,"
       "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,    WH_SYS,   VAH_SYS,  VARH_SYS,   PFH_SYS," +
           demand_names,
       "V12 V23 V31 V1 V2 V3 I1 I2 I3 W1 W2 W3 VA1 VA2 VA3 VAR1 VAR2 VAR3 PF1 PF2 PF3 Phase1 Phase2 Phase3" +
           system_panels}};
  for (const auto& c : cases) {
    EXPECT_EQ(power_column_line(c.wiring), c.names);
    Window window = make_main_window();
    window["Label1_3"].text = "12:30:44";
    std::string expected = "03-15-2024,  12:30:44,";
    std::istringstream panels(c.panels);
    int mark = 100;
    for (std::string panel; panels >> panel; ++mark) {
      window[panel + "_value"].text = std::to_string(mark) + ".5KVAR";
      expected += " " + std::to_string(mark) + ".5KVAR,";
    }
    const std::string record = power_record(c.wiring, {2024, 3, 15}, window);
    EXPECT_EQ(record, expected);
    EXPECT_EQ(record.size(), 11 * (1 + static_cast<std::size_t>(std::ranges::count(c.names, ','))));
  }
  for (const std::int16_t unknown : {std::int16_t{-1}, std::int16_t{4}}) {
    EXPECT_EQ(power_column_line(unknown), "");
    EXPECT_EQ(power_record(unknown, {2024, 3, 15}, make_main_window()), "");
  }
}

TEST(PowerFile, AFieldKeepsTheLastTenCharacters) {
  EXPECT_EQ(record_field(""), "          ,");
  EXPECT_EQ(record_field("  OL "), "       OL ,");
  EXPECT_EQ(record_field("1234567890"), "1234567890,");
  EXPECT_EQ(record_field("-12.34KVARH"), "12.34KVARH,");
}

TEST(PowerFile, ALostLineIs143CharactersLong) {
  const std::string line = no_communication_line({2024, 3, 15}, "12:30:44");
  EXPECT_EQ(line.size(), 143u);
  EXPECT_EQ(line.substr(0, 56), "03-15-2024,12:30:44, NO COM, DATA LOST, !, !,!,!,!,!,!,!");
  EXPECT_EQ(line.substr(56), std::string(87, ' '));
}

TEST(FileHeaders, TellHowTheMeterWasSet) {
  const SettingTexts set = {"60", "15", "2", "1", "1"};
  EXPECT_EQ(power_settings_line(3, set), "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1");
  EXPECT_EQ(power_settings_line(7, {"Auto", "", "", "100", "35"}), "????,Hz=Auto,MD=,SEC=,CT=100,VT=35");
  EXPECT_EQ(harmonics_settings_line({0, 5, 1}, set),
            "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=I3,SYS=1P2W,,NO.=100 ,OPTION=D");
  EXPECT_EQ(waveform_settings_line({3, 0, 0}, set),
            "WAVE Hz=60 MD=15 SEC=2 CT=1 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%");
  const std::string orders = harmonics_column_line();
  EXPECT_EQ(orders.substr(0, 58), "DATE, TIME, RMS, PEAK+, PEAK-, THD-F, VI_1, HZ, RANGE,0,1,");
  EXPECT_EQ(orders.substr(orders.size() - 6), ",98,99");
  EXPECT_EQ(std::count(orders.begin(), orders.end(), ','), 108);
  const std::string samples = waveform_column_line();
  EXPECT_EQ(samples.substr(0, 16), "DATE, TIME 0 1 2");
  EXPECT_EQ(samples.substr(samples.size() - 52), " 1021 1022 1023 OPTION RMS PEAK+ PEAK- HZ THD-F VI_1");
}

}  // namespace
}  // namespace halden
