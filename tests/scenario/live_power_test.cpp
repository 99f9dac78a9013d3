#include <cmath>
#include <map>

#include "companion_test_base.h"

namespace halden {
namespace {

using Texts = std::map<std::string, std::string>;

// A load whose every displayed digit is worked out by hand (current range 1, all ratios 1):
//   VA1 = 2301 x 12340 \ 10000 = 2839        VAR1 = sqrt(2839^2 - 2781^2) - 0.5 = 570.4 -> 570
//   VA2 = 2298 x 11870 \ 10000 = 2727        VAR2 = sqrt(2727^2 - 2655^2) - 0.5 = 622.0 -> 622
//   VA3 = 2306 x 13020 \ 10000 = 3002        VAR3 = sqrt(3002^2 - 2902^2) - 0.5 = 767.9 -> 768
//   PF1 = 10005 x 2781 / 2839 \ 10 = 980     PF2 = 974     PF3 = 967
//   W = 8338, VAR = -1960 (the currents lag), VA = sqrt(8338^2 + 1960^2) = 8565.3, PF = 974
//   V12 = sqrt(2301^2 + 2298^2 + 2301 x 2298) - 0.5 = 3982.3, V23 = 3986.7, V31 = 3989.3
void fix_worked_load(Journey& journey) {
  journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
  journey.fix_phase(2, {2298, 11870, 2655, 1200, 1332});
  journey.fix_phase(3, {2306, 13020, 2902, -1200, -1052});
}

const Texts phase_1 = {{"V1_value", "230.1V"},    {"I1_value", "12.34A"},       {"W1_value", "2.781KW"},
                       {"VA1_value", "2.839KVA"}, {"VAR1_value", "-0.570KVAR"}, {"PF1_value", "0.98"},
                       {"Phase1_value", "-011.6"}};
const Texts phase_2 = {{"V2_value", "229.8V"},    {"I2_value", "11.87A"},       {"W2_value", "2.655KW"},
                       {"VA2_value", "2.727KVA"}, {"VAR2_value", "-0.622KVAR"}, {"PF2_value", "0.97"},
                       {"Phase2_value", "-013.2"}};
const Texts phase_3 = {{"V3_value", "230.6V"},    {"I3_value", "13.02A"},       {"W3_value", "2.902KW"},
                       {"VA3_value", "3.002KVA"}, {"VAR3_value", "-0.768KVAR"}, {"PF3_value", "0.96"},
                       {"Phase3_value", "-014.8"}};
const Texts lines = {{"V12_value", "398.2V"}, {"V23_value", "398.7V"}, {"V31_value", "398.9V"}};

void expect_texts(const Journey& journey, const Texts& expected) {
  for (const auto& [control, text] : expected) EXPECT_EQ(journey.text(control), text) << control;
}

void expect_empty(const Journey& journey, const Texts& untouched) {
  for (const auto& [control, text] : untouched) EXPECT_EQ(journey.text(control), "") << control;
}

struct LivePower : testing::Test {
  void start(Wiring wiring) {
    journey.meter.settings().wiring = wiring;
    fix_worked_load(journey);
    journey.start_on_port(1);
    journey.world.run_for(0.6);
  }

  Journey journey;
};

TEST_F(LivePower, FourWires) {
  start(Wiring::w3p4w);
  for (const Texts& texts : {phase_1, phase_2, phase_3, lines}) expect_texts(journey, texts);
  expect_texts(journey, {{"W_sys_value", "8.338KW"},
                         {"VAR_sys_value", "-1.960KVAR"},
                         {"VA_sys_value", "8.565KVA"},
                         {"PF_sys_value", "0.97"}});
  // One sampling instant of 2 s: 8338 x 2 / 3600 = 4.6 -> 5, -1960 x 2 / 3600 = -1.1, 8565.3 x 2 / 3600 = 4.8
  // -> 5.
  expect_texts(journey, {{"WH_sys_value", "0.005KWH"},
                         {"VARH_sys_value", "-0.001KVARH"},
                         {"VAH_sys_value", "0.005KVAH"},
                         {"PFH_sys_value", "0.97H"},
                         {"W_MD_value", "------"},
                         {"W_AD_value", ""}});
  EXPECT_EQ(journey.text("status_link"), "linked");
}

TEST_F(LivePower, ThreeWires) {
  start(Wiring::w3p3w);
  for (const Texts& texts : {phase_1, phase_2, phase_3, lines}) expect_texts(journey, texts);
  EXPECT_EQ(journey.text("power_system"), "3P3W");
  EXPECT_FALSE(journey.window()["V1_value"].visible);
  EXPECT_TRUE(journey.window()["V12_value"].visible);
}

TEST_F(LivePower, OnePhaseThreeWires) {
  start(Wiring::w1p3w);
  expect_texts(journey, phase_1);
  expect_texts(journey, phase_2);
  expect_empty(journey, phase_3);
  expect_empty(journey, lines);
  // W = 2781 + 2655, VAR = -(570 + 622), VA = sqrt(5436^2 + 1192^2) = 5565.1, PF = 10005 x 5436 / 5565.1 \ 10
  // = 977
  expect_texts(journey, {{"W_sys_value", "5.436KW"},
                         {"VAR_sys_value", "-1.192KVAR"},
                         {"VA_sys_value", "5.565KVA"},
                         {"PF_sys_value", "0.97"}});
}

TEST_F(LivePower, OnePhaseTwoWires) {
  start(Wiring::w1p2w);
  expect_texts(journey, phase_1);
  expect_empty(journey, phase_2);
  expect_empty(journey, lines);
  expect_texts(journey, {{"W_sys_value", "2.781KW"}, {"VAR_sys_value", "-0.570KVAR"}});
}

// Real division rounds where integer division cuts: 17999 W is 17.99KW for the phase and 18.00KW for the
// system.
TEST_F(LivePower, TheSystemMayDifferFromItsOnlyPhaseInTheLastDigit) {
  journey.meter.settings().wiring = Wiring::w1p2w;
  journey.fix_phase(1, {2301, 12340, 17999, 0, 116});
  journey.start_on_port(1);
  journey.world.run_for(0.6);
  expect_texts(journey, {{"W1_value", "17.99KW"}, {"W_sys_value", "18.00KW"}});
}

TEST_F(LivePower, SeveralFramesComeEverySecond) {
  start(Wiring::w3p4w);
  const double from_s = journey.world.clock.monotonic_s();
  journey.world.run_for(10);
  const std::string requests = journey.received(from_s);
  EXPECT_GE(requests.size(), 30u);
  EXPECT_LE(requests.size(), 41u);
  EXPECT_EQ(requests.find_first_not_of(' '), std::string::npos);
  EXPECT_EQ(journey.program().link.missed_polls, 0);
}

TEST_F(LivePower, EnergyAdvancesOncePerSamplingInstant) {
  start(Wiring::w3p4w);
  journey.world.run_for(60);
  // The first frame, and then 30 instants of 2 s in a minute: 31 or, with the instant on the edge, 32.
  const double instants = journey.program().readings.energy_wh / 8338.0;
  EXPECT_GE(instants, 30);
  EXPECT_LE(instants, 32);
  EXPECT_EQ(instants, std::floor(instants));
}

TEST_F(LivePower, TheSampleClockShowsEvenInstantsOnWholeSeconds) {
  start(Wiring::w3p4w);
  journey.world.run_for(4);
  std::vector<std::string> seen;
  for (int tenth = 0; tenth < 80; ++tenth) {
    journey.world.run_for(0.1);
    if (seen.empty() || seen.back() != journey.text("Label1_3")) seen.push_back(journey.text("Label1_3"));
  }
  ASSERT_GE(seen.size(), 4u);
  for (std::size_t i = 1; i + 1 < seen.size(); ++i) {
    const int before = std::stoi(seen[i - 1].substr(6)), now = std::stoi(seen[i].substr(6));
    EXPECT_EQ((now - before + 60) % 60, 2) << seen[i - 1] << " " << seen[i];
  }
}

TEST_F(LivePower, APhaseWithoutVoltageOrCurrentHasNoAngle) {
  journey.fix_phase(1, {0, 12340, 0, 777, 116});
  journey.fix_phase(2, {2298, 0, 0, 1200, 999});
  journey.fix_phase(3, {2306, 13020, 2902, -1200, -1052});
  journey.start_on_port(1);
  journey.world.run_for(0.6);
  EXPECT_EQ(journey.program().raw.v_angle[0], 0);
  EXPECT_EQ(journey.program().raw.i_angle[1], 0);
  expect_texts(journey, {{"Phase1_value", "-011.6"}, {"Phase2_value", "120.0"}, {"PF1_value", "0.00"}});
}

TEST_F(LivePower, OverRangeShowsInAllThatDependsOnItAndAddsNothing) {
  start(Wiring::w3p4w);
  const double energy = journey.program().readings.energy_wh;
  journey.fix_phase(2, {2298, -1, -1, 1200, 1332});
  journey.world.run_for(5);
  for (const char* control : {"I2_value", "W2_value", "VA2_value", "VAR2_value", "PF2_value", "Phase2_value",
                              "W_sys_value", "VAR_sys_value", "VA_sys_value", "WH_sys_value"})
    EXPECT_EQ(journey.text(control), "  OL ") << control;
  EXPECT_EQ(journey.text("PF_sys_value"), "   OL ");
  EXPECT_EQ(journey.text("V2_value"), "229.8V");
  expect_texts(journey, phase_1);
  EXPECT_EQ(journey.program().readings.energy_wh, energy);
}

// A phase that is not in use counts nothing, even when it was over range before the wiring changed.
TEST_F(LivePower, AnUnusedPhaseDoesNotReachTheSystem) {
  journey.fix_phase(3, {2306, -1, -1, -1200, -1052});
  start(Wiring::w3p4w);
  journey.fix_phase(3, {2306, -1, -1, -1200, -1052});
  journey.world.run_for(1);
  EXPECT_EQ(journey.text("W_sys_value"), "  OL ");
  journey.meter.settings().wiring = Wiring::w1p2w;
  journey.click_after(0.1, "get_hz");
  journey.world.run_for(13);
  EXPECT_EQ(journey.text("power_system"), "1P2W");
  EXPECT_EQ(journey.text("W_sys_value"), "2.781KW");
}

TEST_F(LivePower, ResettingShowsItsTextsAndStartsAnew) {
  start(Wiring::w3p4w);
  journey.world.run_for(10);
  journey.companion->click("reset_kwh");
  expect_texts(journey, {{"WH_sys_value", "0.0"},
                         {"VAH_sys_value", "0.0 "},
                         {"VARH_sys_value", "0.0"},
                         {"PFH_sys_value", "0.00"},
                         {"W_MD_value", "------"},
                         {"VA_MD_value", "------"},
                         {"W_AD_value", ""},
                         {"VA_AD_value", ""}});
  EXPECT_EQ(journey.program().readings.energy_wh, 0);
  journey.world.run_for(2.2);
  EXPECT_EQ(journey.text("WH_sys_value"), "0.005KWH");
}

TEST_F(LivePower, ADemandPeriodOfOneMinuteShowsItsAverage) {
  journey.meter.settings().md_period = 1;
  start(Wiring::w3p4w);
  journey.world.run_for(55);
  EXPECT_EQ(journey.text("W_MD_value"), "------");
  journey.world.run_for(10);
  expect_texts(journey, {{"W_MD_value", "8.338KW"},
                         {"W_AD_value", "8.338KW"},
                         {"VA_MD_value", "8.565KVA"},
                         {"VA_AD_value", "8.565KVA"}});
  EXPECT_LT(journey.program().readings.demand_samples, 10) << "a new period has begun";
  journey.meter.load().free();
  fix_worked_load(journey);
  journey.fix_phase(3, {2306, 13020, 1902, -1200, -1052});
  journey.world.run_for(120);
  expect_texts(journey, {{"W_MD_value", "8.338KW"}, {"W_AD_value", "7.338KW"}});
}

}  // namespace
}  // namespace halden
