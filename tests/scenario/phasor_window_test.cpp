// The phasor window beside the simulated meter.
#include <cmath>

#include "program_test_base.h"

namespace halden {
namespace {

using simulator::Wiring;

using Texts = std::vector<std::string>;

struct PhasorTest : testing::Test, Journey {
  PhasorTest() {
    fix_phase(1, {2000, 10000, 2000, 0, 300});
    fix_phase(2, {1000, 5000, 500, 1200, 1200});
    fix_phase(3, {2000, 10000, 2000, -1200, -1200});
    start_on_port(1);
    click("phasor_button");
    world.run_for(1);
  }

  const Window& form() const { return window("PhasorForm"); }

  // "x,y" of the end of a vector, rounded.
  std::string end_of(const std::string& vector) const {
    const Control& line = form()[vector];
    return std::to_string(std::lround(line.left + line.width)) + "," +
           std::to_string(std::lround(line.top + line.height));
  }

  // One digit for each of these: 1 when it is shown.
  std::string visible() const {
    std::string state;
    for (const char* name :
         {"V1_vector", "v2_circle", "v3_vector_label", "I1_square", "i2_vector_label", "I3_vector",
          "v12_vector", "V31_vector_label", "In_value", "angle_v1v2", "vxy", "v_only"})
      state += form()[name].visible ? '1' : '0';
    return state;
  }
};

// The largest voltage, 200.0 V, reaches 1900 from (7480, 3560), the largest current 1500:
//   V1 at 0 degrees: 9380, 3560
//   V2 half as long at -120 degrees: 7480 - 950 x 0.5 = 7005, 3560 + 950 x 0.86603 = 4382.7
//   V3 at 120 degrees: 7480 - 950 = 6530, 3560 - 1645.5 = 1914.5
//   I1 lags by 30 degrees: 7480 + 1299.0 = 8779, 3560 + 750 = 4310
//   V12 = V1 - V2: 7480 + 2375 = 9855, 3560 - 822.7 = 2737.3; at 19.1 degrees its label, 2600 from the
//   origin, begins at 7480 + 2456.8, 3560 - 851.1
TEST_F(PhasorTest, VectorsMarkersAndLabelsStandWhereTheReadingPutsThem) {
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
  EXPECT_NEAR(form()["V12_vector_label"].left, 9936.8, 1);
  EXPECT_NEAR(form()["V12_vector_label"].top, 2708.9, 1);
  EXPECT_EQ(form()["angle_v1v2"].text, "120.0");
  EXPECT_EQ(form()["angle_v2v3"].text, "120.0");
  EXPECT_EQ(form()["angle_i1i2"].text, "90.0");
  EXPECT_EQ(form()["VUR_value"].text, text("VUR_value"));
  EXPECT_EQ(form()["In_label"].text, "In");
}

TEST_F(PhasorTest, WiringAndCommandsDecideWhatIsShown) {
  for (const auto& [wiring, expected] : {std::pair(Wiring::w1p2w, "100100000001"),
                                         {Wiring::w1p3w, "110110000001"},
                                         {Wiring::w3p3w, "111111111111"},
                                         {Wiring::w3p4w, "111111111111"}}) {
    meter.settings().wiring = wiring;
    click("get_hz");
    world.run_for(1);
    EXPECT_EQ(visible(), expected);
    EXPECT_EQ(form()["In_label"].text == "Ing", wiring == Wiring::w3p3w);
  }
  for (const auto& [command, expected] : {std::pair("v_only", "111000001111"),
                                          {"i_only", "000111001111"},
                                          {"vxy", "000000111111"},
                                          {"vi_all", "111111111111"},
                                          {"hide_vxy", "111111001111"}}) {
    click(command, "PhasorForm");
    world.run_for(1);
    EXPECT_EQ(visible(), expected) << command;
  }
  window("PhasorForm").resized();
  EXPECT_EQ(visible(), "111111111111") << "as after loading";
}

TEST_F(PhasorTest, EachFrameRedrawsOnceWhileTheWindowIsVisible) {
  bool empty = form()["Text1"].text.empty();
  for (int frame = 0; frame < 6; ++frame) {
    const double from_s = now_s();
    const std::string before = form()["Text1"].text;
    ASSERT_TRUE(world.run_until([&] { return form()["Text1"].text != before; }, 2));
    EXPECT_NE(form()["Text1"].text.empty(), empty);
    empty = !empty;
    EXPECT_LT(now_s() - from_s, 0.6);
  }
  window("PhasorForm").closed();
  const std::string before = form()["Text1"].text;
  fix_phase(1, {1500, 1, 1, 0, 0});
  EXPECT_FALSE(world.run_until([&] { return form()["Text1"].text != before; }, 2));
  EXPECT_EQ(form()["v1_vector_label"].text, "V1 < 200.0V, 0.0 >") << "the last picture stays";
  click("phasor_button");
  world.run_for(1);
  EXPECT_EQ(form()["v1_vector_label"].text, "V1 < 150.0V, 0.0 >");
}

TEST_F(PhasorTest, WithoutVoltageTheVectorsHaveNoLength) {
  for (int phase = 1; phase <= 3; ++phase) fix_phase(phase, {0, 0, 0, 0, 0});
  world.run_for(1);
  for (const char* vector : {"V1_vector", "V3_vector", "I2_vector", "v23_vector"})
    EXPECT_EQ(end_of(vector), "7480,3560") << vector;
  EXPECT_EQ(form()["d2_v_value"].text, "OL %");
}

TEST_F(PhasorTest, OpensOnlyInPowerModeAndPrintsInLandscape) {
  click("print_phasor", "PhasorForm");
  ASSERT_EQ(world.printer.documents.size(), 1u);
  EXPECT_EQ(world.printer.documents[0][0].orientation, Orientation::landscape);
  EXPECT_EQ(world.printer.documents[0][0].windows, Texts{"PhasorForm"});
  for (const auto& [gone_with, on] :
       {std::pair("print_phasor", "PhasorForm"), {"phasor_button", "MeterRec"}}) {
    world.printer.failure = PrintFailure::failed;
    click("print_phasor", "PhasorForm");
    EXPECT_EQ(form()["status_hint"].text, "The document could not be printed.");
    world.printer.failure = PrintFailure::none;
    click(gone_with, on);
    EXPECT_EQ(form()["status_hint"].text, "") << gone_with;
  }
  window("PhasorForm").closed();
  program().link.status.meter_mode = harmonics_mode;
  click("phasor_button");
  EXPECT_FALSE(form().visible());
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"Not in power mode, please press the POWER button"});
}

}  // namespace
}  // namespace halden
