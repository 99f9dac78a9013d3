// What reaches the meter when a setting is sent, character by character and to the tenth of a second.
#include <cmath>

#include "companion_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct SettingsTest : testing::Test {
  SettingsTest() {
    journey.start_on_port(1);
    journey.world.run_for(3);
  }

  void click(const std::string& control) {
    journey.click_after(0, control);
    journey.world.run_for(0.001);
    ASSERT_TRUE(journey.world.run_until([this] { return !journey.program().gate.busy(); }, 60));
  }

  void type(const std::string& box, const std::string& text) {
    journey.program().screen.meter_rec[box].text = text;
  }

  // The bytes from the letter on: "C@0.0 4@2.0 ..." with the seconds since the first; the carriage return as
  // "CR".
  std::string sent_since(double from_s) const {
    std::string text;
    double first_s = -1;
    for (const ReceivedByte& byte : journey.meter.log()) {
      if (byte.time_s <= from_s) continue;
      if (first_s < 0) first_s = byte.time_s;
      const long tenths = std::lround((byte.time_s - first_s) * 10);
      text += (text.empty() ? "" : " ") + (byte.byte == '\r' ? "CR" : std::string(1, byte.byte)) + "@" +
              std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
    }
    return text;
  }

  Journey journey;
};

struct Sent {
  const char *button, *box, *typed, *bytes;
};

// After the carriage return 0.2 s, then the status query: 3 + 1 s to its "?", 5 s for the reply, 1 s to the
// live request.
TEST_F(SettingsTest, EveryCharacterWaitsForItsTurn) {
  const std::vector<Sent> cases = {
      {"set_ct", "ct_value", "40", "C@0.0 4@2.0 0@2.5 CR@3.2 ?@7.4  @13.4"},
      {"set_ct", "ct_value", "", "C@0.0 CR@2.2 ?@6.4  @12.4"},
      {"set_pt", "pt_value", "7", "V@0.0 7@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_md", "md_value", "015", "M@0.0 0@2.0 1@2.5 5@3.0 CR@3.5 ?@7.7  @13.7"},
      {"set_md", "md_value", "４", "M@0.0 \xEF@2.0 \xBC@2.0 \x94@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_sec", "sec_value", "4", "S@0.0 4@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_sec", "sec_value", "2.5", "S@0.0 2@2.0 .@2.5 5@3.0 CR@3.5 ?@7.7  @13.7"},
      {"set_sec", "sec_value", "", "S@0.0 CR@2.0 ?@6.2  @12.2"},
      {"set_hz", "HZ_value", "50", "F@0.0 1@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "60 ", "F@0.0 2@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "55", "F@0.0 0@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "Auto", "F@0.0 0@2.0 CR@2.5 ?@6.7  @12.7"},
      {"set_hz", "HZ_value", "", "F@0.0 0@2.0 CR@2.5 ?@6.7  @12.7"}};
  for (const Sent& sent : cases) {
    type(sent.box, sent.typed);
    const double from_s = journey.world.clock.monotonic_s() + 0.0001;
    click(sent.button);
    EXPECT_EQ(sent_since(from_s), sent.bytes) << sent.button << " " << sent.typed;
  }
  EXPECT_EQ(journey.meter.settings().ct_ratio, 40);
  EXPECT_EQ(journey.meter.settings().pt_ratio, 7);
  EXPECT_EQ(journey.meter.settings().sample_seconds, 4);
  EXPECT_EQ(journey.text("ct_value"), "40") << "read back";
  EXPECT_EQ(journey.text("HZ_value"), "Auto");
  EXPECT_TRUE(journey.world.dialogs.messages.empty());
}

TEST_F(SettingsTest, AnOddIntervalIsRefusedAndNothingElseHappens) {
  journey.world.run_for(10);
  const std::string energy = journey.text("WH_sys_value");
  ASSERT_NE(energy, "0.0");
  journey.world.dialogs.while_open = [this](const Message&) {
    EXPECT_EQ(journey.text("status_hint"), "") << "nothing is being sent";
  };
  for (const char* typed : {"3", "2.6", "3.5x", "-1", "99999999999"}) {
    type("sec_value", typed);
    const double from_s = journey.world.clock.monotonic_s() + 0.0001;
    const std::size_t told = journey.world.dialogs.messages.size();
    click("set_sec");
    const bool odd = std::string(typed) != "3.5x";  // a half goes to the even 4
    EXPECT_EQ(journey.world.dialogs.messages.size(), told + (odd ? 1 : 0)) << typed;
    EXPECT_EQ(journey.received(from_s)[0], odd ? ' ' : 'S') << typed;
    if (std::string(typed) == "3") {
      EXPECT_EQ(journey.text("WH_sys_value").back(), 'H') << "energies go on";
    }
  }
  EXPECT_EQ(journey.world.dialogs.messages[0].text,
            "Sampling time must be an even number (2, 4, 6, ...), please re-enter !");
  EXPECT_EQ(journey.world.dialogs.messages[0].icon, Icon::exclamation);
  journey.world.run_for(2);
  EXPECT_EQ(journey.text("V1_value").back(), 'V') << "polling goes on";
}

TEST_F(SettingsTest, EnergiesAndDemandsStartAnewAfterEverySetting) {
  for (const char* button : {"set_ct", "set_pt", "set_md", "set_sec", "set_hz", "get_hz", "reset_kwh"}) {
    journey.world.run_for(6);
    ASSERT_NE(journey.text("WH_sys_value"), "0.0") << button;
    bool looked = false;
    journey.click_after(0, button);
    journey.world.run_until([&] { return looked = journey.text("WH_sys_value") == "0.0"; }, 60);
    ASSERT_TRUE(looked) << button;
    EXPECT_EQ(journey.text("VAH_sys_value"), "0.0 ");
    EXPECT_EQ(journey.text("VARH_sys_value"), "0.0");
    EXPECT_EQ(journey.text("PFH_sys_value"), "0.00");
    EXPECT_EQ(journey.text("W_MD_value") + journey.text("VA_MD_value"), "------------");
    EXPECT_EQ(journey.text("W_AD_value") + journey.text("VA_AD_value"), "");
  }
}

// PT alone lets pending events run once, directly after its letter.
TEST_F(SettingsTest, OnlyPtLetsEventsThroughAndOnlyOnce) {
  for (const bool pt : {true, false}) {
    double seen_s = 0;
    const double began_s = journey.world.clock.monotonic_s();
    journey.click_after(0, pt ? "set_pt" : "set_md");
    // It comes up while the line is watched for quiet, a second or less before the letter goes out.
    journey.world.user_does(0.2, [&] { seen_s = journey.world.clock.monotonic_s(); });
    journey.world.run_for(30);
    double letter_s = 0;
    for (const ReceivedByte& byte : journey.meter.log())
      if (byte.byte == (pt ? 'V' : 'M') && byte.time_s > began_s) letter_s = byte.time_s;
    if (pt)
      EXPECT_NEAR(seen_s, letter_s, 0.01);
    else
      EXPECT_GT(seen_s, letter_s + 2.5) << "not before the status query";
  }
}

TEST(SettingsAtMidnight, AWaitBeginsAnewAndNothingIsLost) {
  Journey late(86400 - 16.0);
  late.start_on_port(1);  // 11 s
  late.program().screen.meter_rec["ct_value"].text = "12";
  late.click_after(2, "set_ct");
  late.world.user_closes(3, [&] { EXPECT_EQ(late.text("status_hint"), "Sending CT to the meter..."); });
  late.world.run_for(40);
  EXPECT_EQ(late.text("status_hint"), "");
  EXPECT_EQ(late.meter.settings().ct_ratio, 12);
}

}  // namespace
}  // namespace halden
