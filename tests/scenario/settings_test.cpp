// What reaches the meter when a setting is sent, character by character and to the tenth of a second.
#include <algorithm>
#include <array>
#include <cmath>

#include "program_test_base.h"

namespace halden {
namespace {

struct SettingsTest : testing::Test, Journey {
  SettingsTest() {
    start_on_port(1);
    world.run_for(3);
  }

  void type(const std::string& box, const std::string& text) {
    program().shared.meter_rec.set_text(box, text);
  }

  // The bytes from the letter on: "C@0.0 4@2.0 ..." with the seconds since the first; the carriage return as
  // "CR".
  std::string sent_since(double from_s) const {
    std::string text;
    double first_s = -1;
    for (const simulator::ReceivedByte& byte : meter.log()) {
      if (byte.time_s <= from_s) continue;
      if (first_s < 0) first_s = byte.time_s;
      const long tenths = std::lround((byte.time_s - first_s) * 10);
      text += (text.empty() ? "" : " ") + (byte.byte == '\r' ? "CR" : std::string(1, byte.byte)) + "@" +
              std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
    }
    return text;
  }
};

// After the carriage return 0.2 s, then the status query: 3 + 1 s to its "?", 5 s for the reply, 1 s to the
// live request.
TEST_F(SettingsTest, EveryCharacterWaitsForItsTurn) {
  const std::array<const char*, 4> rows[] = {
      {"set_ct", "ct_value", "40", "C@0.0 4@2.0 0@2.5 CR@3.2 ?@7.4  @13.4"},
      {"set_ct", "ct_value", "", "C@0.0 CR@2.2 ?@6.4  @12.4"},
      {"set_pt", "pt_value", "7", "V@0.0 7@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_md", "md_value", "015", "M@0.0 0@2.0 1@2.5 5@3.0 CR@3.5 ?@7.7  @13.7"},
      {"set_md", "md_value", "４", "M@0.0 \xEF@2.0 \xBC@2.0 \x94@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_sec", "sec_value", "4", "S@0.0 4@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_sec", "sec_value", "2.5", "S@0.0 2@2.0 .@2.5 5@3.0 CR@3.5 ?@7.7  @13.7"},
      // a half goes to the even 4
      {"set_sec", "sec_value", "3.5x", "S@0.0 3@2.0 .@2.5 5@3.0 x@3.5 CR@4.0 ?@8.2  @14.2"},
      {"set_sec", "sec_value", "", "S@0.0 CR@2.0 ?@6.2  @12.2"},
      {"set_hz", "HZ_value", "50", "F@0.0 1@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "60 ", "F@0.0 2@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "Auto", "F@0.0 0@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "", "F@0.0 0@2.0 CR@2.5 ?@6.7  @12.7"}};
  for (const auto& [button, box, typed, bytes] : rows) {
    type(box, typed);
    const double from_s = now_s() + 0.0001;
    click(button);
    EXPECT_EQ(sent_since(from_s), bytes) << button << " " << typed;
  }
  EXPECT_EQ(meter.settings().ct_ratio, 40);
  EXPECT_EQ(meter.settings().pt_ratio, 7);
  EXPECT_EQ(meter.settings().sample_seconds, 4);
  EXPECT_EQ(values("ct HZ"), "40|Auto|") << "read back";
  EXPECT_TRUE(world.dialogs.messages.empty());
}

TEST_F(SettingsTest, AnOddIntervalIsRefusedAndNothingElseHappens) {
  world.dialogs.while_open = [this](const Message& told) {
    EXPECT_EQ(told.text, "Sampling time must be an even number (2, 4, 6, ...), please re-enter !");
    EXPECT_EQ(told.icon, Icon::exclamation);
    EXPECT_EQ(text("status_hint"), "") << "nothing is being sent";
  };
  for (const char* typed : {"3", "2.6", "-1", "99999999999"}) {
    type("sec_value", typed);
    world.dialogs.messages.clear();
    const double from_s = now_s() + 0.0001;
    click("set_sec");
    EXPECT_EQ(world.dialogs.messages.size(), 1u) << typed;
    EXPECT_EQ(received(from_s), " ") << typed << ": polling goes on";
    EXPECT_EQ(text("WH_sys_value").back(), 'H') << "energies go on";
  }
}

TEST_F(SettingsTest, EnergiesAndDemandsStartAnewAfterEverySetting) {
  for (const char* button : {"set_ct", "set_pt", "set_md", "set_sec", "set_hz", "get_hz", "reset_kwh"}) {
    world.run_for(6);
    ASSERT_GT(program().live.chain.readings.energy_wh, 0) << button;
    click(button);
    EXPECT_EQ(program().live.chain.readings.energy_wh, 0) << button;
    EXPECT_EQ(values("WH_sys VAH_sys VARH_sys PFH_sys W_MD VA_MD W_AD VA_AD"),
              "0.0|0.0 |0.0|0.00|------|------|||")
        << button;
  }
}

// Windows take no typing while an exchange runs: what slips into its last turns is overwritten.
TEST_F(SettingsTest, TheExchangeLastsUntilTheBoxesAreFilledAgain) {
  bool ran = false;
  click_after(0, "set_ct");
  world.user_does(0.2, [&] {
    ran = program().link.gate.busy();
    type("md_value", "99");
  });
  world.run_for(30);
  EXPECT_TRUE(ran);
  EXPECT_FALSE(program().link.gate.busy());
  EXPECT_EQ(values("md"), "15|");
}

// PT alone lets pending events run once, directly after its letter.
TEST_F(SettingsTest, OnlyPtLetsEventsThroughAndOnlyOnce) {
  for (const bool pt : {true, false}) {
    double seen_s = 0;
    const double began_s = now_s();
    click_after(0, pt ? "set_pt" : "set_md");
    // It comes up while the line is watched for quiet, a second or less before the letter goes out.
    world.user_does(0.2, [&] { seen_s = now_s(); });
    world.run_for(30);
    double letter_s = 0;
    for (const simulator::ReceivedByte& byte : meter.log())
      if (byte.byte == (pt ? 'V' : 'M') && byte.time_s > began_s) letter_s = byte.time_s;
    if (pt)
      EXPECT_NEAR(seen_s, letter_s, 0.01);
    else
      EXPECT_GT(seen_s, letter_s + 2.5) << "not before the status query";
  }
}

// The status query at the end of the first setting fills all boxes again.
TEST_F(SettingsTest, ASettingClickedDuringAnotherOneGoesOutAsItStoodAtTheClick) {
  type("ct_value", "40");
  type("pt_value", "7");
  click_after(0, "set_ct");
  world.user_closes(3, [this] {  // also in a wait without input
    window().press("set_pt");
    click_after(0, "set_pt");
  });
  world.run_for(60);
  EXPECT_EQ(meter.settings().ct_ratio, 40);
  EXPECT_EQ(meter.settings().pt_ratio, 7);
  EXPECT_EQ(text("status_hint"), "CT is now 40. PT is now 7") << "the first result could not be read in time";
  world.run_for(6);
  type("ct_value", "0");
  click("set_ct");
  EXPECT_EQ(text("status_hint"), "The meter kept CT 40");
}

TEST_F(SettingsTest, ADoubleClickSendsASettingOnce) {
  type("ct_value", "40");
  const double from_s = now_s();
  click_after(0, "set_ct");
  world.user_closes(0.3, [this] {
    window().press("set_ct");
    click_after(0, "set_ct");
  });
  world.run_for(60);
  const auto times_sent = [&] { return std::ranges::count(received(from_s), 'C'); };
  EXPECT_EQ(times_sent(), 1);
  click("set_ct");
  EXPECT_EQ(times_sent(), 2) << "a click afterwards is a new one";
}

TEST(SettingsAtMidnight, AWaitBeginsAnewAndNothingIsLost) {
  Journey late(86400 - 16.0);
  late.start_on_port(1);  // 11 s
  late.program().shared.meter_rec.set_text("ct_value", "12");
  late.click_after(2, "set_ct");
  late.world.user_closes(3, [&] { EXPECT_EQ(late.text("status_hint"), "Sending CT to the meter..."); });
  late.world.run_for(40);
  EXPECT_EQ(late.text("status_hint"), "CT is now 12");
  EXPECT_EQ(late.meter.settings().ct_ratio, 12);
}

}  // namespace
}  // namespace halden
