// The phasor window beside the simulated meter.
#include <cmath>
#include <map>

#include "companion_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct PhasorTest : testing::Test {
  void start(Wiring wiring = Wiring::w3p4w) {
    journey.meter.settings().wiring = wiring;
    journey.fix_phase(1, {2000, 10000, 2000, 0, 300});
    journey.fix_phase(2, {1000, 5000, 500, 1200, 1200});
    journey.fix_phase(3, {2000, 10000, 2000, -1200, -1200});
    journey.start_on_port(1);
    journey.companion->click("phasor_button");
    journey.world.run_for(1);
  }

  const Window& form() const { return journey.companion->screen().phasor_form; }

  // "x,y" of the end of a vector, rounded.
  std::string end_of(const std::string& vector) const {
    const Control& line = form()[vector];
    return std::to_string(std::lround(line.left + line.width)) + "," +
           std::to_string(std::lround(line.top + line.height));
  }

  std::string visible(const Texts& names) const {
    std::string state;
    for (const std::string& name : names) state += form()[name].visible ? '1' : '0';
    return state;
  }

  Journey journey;
};

const Texts watched = {"V1_vector", "v2_circle",  "v3_vector_label",  "I1_square", "i2_vector_label",
                       "I3_vector", "v12_vector", "V31_vector_label", "In_value",  "angle_v1v2",
                       "vxy",       "v_only"};

// The largest voltage, 200.0 V, reaches 1900 from (7480, 3560), the largest current 1500:
//   V1 at 0 degrees: 9380, 3560
//   V2 half as long at -120 degrees: 7480 - 950 x 0.5 = 7005, 3560 + 950 x 0.86603 = 4382.7
//   V3 at 120 degrees: 7480 - 950 = 6530, 3560 - 1645.5 = 1914.5
//   I1 lags by 30 degrees: 7480 + 1299.0 = 8779, 3560 + 750 = 4310
//   V12 = V1 - V2: 7480 + 2375 = 9855, 3560 - 822.7 = 2737.3
TEST_F(PhasorTest, VectorsMarkersAndLabelsStandWhereTheReadingPutsThem) {
  start();
  EXPECT_EQ(end_of("V1_vector"), "9380,3560");
  EXPECT_EQ(end_of("V2_vector"), "7005,4383");
  EXPECT_EQ(end_of("V3_vector"), "6530,1915");
  EXPECT_EQ(end_of("I1_vector"), "8779,4310");
  EXPECT_EQ(end_of("v12_vector"), "9855,2737");
  const Control& marker = form()["v1_circle"];
  EXPECT_FLOAT_EQ(marker.left + marker.width / 2, 9380);
  EXPECT_FLOAT_EQ(marker.top + marker.height / 2, 3560);
  EXPECT_EQ(form()["v1_vector_label"].text, "V1 < 200.0V, 0.0 >");
  EXPECT_FLOAT_EQ(form()["v1_vector_label"].left, 7480 + 2050);
  // V2's label is 2050 from the origin at -120 degrees: 6455, 5335.4; it ends there.
  const Control& label = form()["v2_vector_label"];
  EXPECT_EQ(label.text, "V2 < 100.0V, -120.0 >");
  EXPECT_NEAR(label.left + label.width, 6455, 1);
  EXPECT_NEAR(label.top, 5335.4, 1);
  EXPECT_EQ(label.tag, "right");
  EXPECT_EQ(form()["angle_v1v2"].text, "120.0");
  EXPECT_EQ(form()["angle_v2v3"].text, "120.0");
  EXPECT_EQ(form()["angle_i1i2"].text, "90.0");
  EXPECT_EQ(form()["VUR_value"].text, journey.text("VUR_value"));
  EXPECT_EQ(form()["In_label"].text, "In");
}

TEST_F(PhasorTest, WiringAndCommandsDecideWhatIsShown) {
  const std::map<Wiring, std::string> by_wiring = {{Wiring::w1p2w, "100100000001"},
                                                   {Wiring::w1p3w, "110110000001"},
                                                   {Wiring::w3p3w, "111111111111"},
                                                   {Wiring::w3p4w, "111111111111"}};
  for (const auto& [wiring, expected] : by_wiring) {
    Journey fresh;
    fresh.meter.settings().wiring = wiring;
    fresh.start_on_port(1);
    fresh.companion->click("phasor_button");
    fresh.world.run_for(1);
    std::string state;
    for (const std::string& name : watched)
      state += fresh.companion->screen().phasor_form[name].visible ? '1' : '0';
    EXPECT_EQ(state, expected);
    if (wiring == Wiring::w3p3w) {
      EXPECT_EQ(fresh.companion->screen().phasor_form["In_label"].text, "Ing");
    }
  }
  start();
  const std::vector<std::pair<std::string, std::string>> commands = {{"v_only", "111000001111"},
                                                                     {"i_only", "000111001111"},
                                                                     {"vxy", "000000111111"},
                                                                     {"vi_all", "111111111111"},
                                                                     {"hide_vxy", "111111001111"}};
  for (const auto& [command, expected] : commands) {
    journey.companion->click(command);
    journey.world.run_for(1);
    EXPECT_EQ(visible(watched), expected) << command;
  }
  // Another wiring of the meter takes the vectors of the other phases away.
  journey.meter.settings().wiring = Wiring::w1p2w;
  journey.click_after(0, "get_hz");
  journey.world.run_for(15);
  EXPECT_EQ(visible(watched), "100100000001");
}

TEST_F(PhasorTest, EachFrameRedrawsOnceWhileTheWindowIsVisible) {
  start();
  bool empty = form()["Text1"].text.empty();
  for (int frame = 0; frame < 6; ++frame) {
    const double from_s = journey.world.clock.monotonic_s();
    const std::string before = form()["Text1"].text;
    ASSERT_TRUE(journey.world.run_until([&] { return form()["Text1"].text != before; }, 2));
    EXPECT_NE(form()["Text1"].text.empty(), empty);
    empty = !empty;
    EXPECT_LT(journey.world.clock.monotonic_s() - from_s, 0.6);
  }
  journey.companion->phasor_form_closed();
  const std::string before = form()["Text1"].text;
  journey.fix_phase(1, {1500, 1, 1, 0, 0});
  EXPECT_FALSE(journey.world.run_until([&] { return form()["Text1"].text != before; }, 2));
  EXPECT_EQ(form()["v1_vector_label"].text, "V1 < 200.0V, 0.0 >") << "the last picture stays";
  journey.companion->click("phasor_button");
  journey.world.run_for(1);
  EXPECT_EQ(form()["v1_vector_label"].text, "V1 < 150.0V, 0.0 >");
}

TEST_F(PhasorTest, WithoutVoltageTheVectorsHaveNoLength) {
  start();
  for (int phase = 1; phase <= 3; ++phase) journey.fix_phase(phase, {0, 0, 0, 0, 0});
  journey.world.run_for(1);
  for (const char* vector : {"V1_vector", "V3_vector", "I2_vector", "v23_vector"})
    EXPECT_EQ(end_of(vector), "7480,3560") << vector;
  EXPECT_EQ(form()["d2_v_value"].text, "OL %");
}

TEST_F(PhasorTest, OpensOnlyInPowerModeAndPrintsInLandscape) {
  start();
  journey.companion->click("print_phasor");
  ASSERT_EQ(journey.world.printer.documents.size(), 1u);
  EXPECT_EQ(journey.world.printer.documents[0][0].orientation, Orientation::landscape);
  EXPECT_EQ(journey.world.printer.documents[0][0].windows, Texts{"PhasorForm"});
  journey.world.printer.failure = PrintFailure::failed;
  journey.companion->click("print_phasor");
  EXPECT_EQ(form()["status_hint"].text, "The document could not be printed.");
  journey.world.printer.failure = PrintFailure::none;
  journey.companion->click("print_phasor");
  EXPECT_EQ(form()["status_hint"].text, "");
  journey.companion->phasor_form_closed();
  journey.program().status.meter_mode = harmonics_mode;
  journey.companion->click("phasor_button");
  EXPECT_FALSE(form().visible());
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{"Not in power mode, please press the POWER button"});
}

}  // namespace
}  // namespace halden
