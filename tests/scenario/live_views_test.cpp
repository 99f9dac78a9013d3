// Readings of the simulated meter in the main window and in the phasor window.
#include <array>
#include <cmath>

#include "program_test_base.h"

namespace halden {
namespace {

using simulator::Wiring;

using Texts = std::vector<std::string>;

struct WorkedLoad : Journey {
  void start_wired(Wiring wiring) {
    meter.settings().wiring = wiring;
    fix_worked_load();
    start_on_port(1);
    world.run_for(0.6);
  }
};

// Current range 1, all ratios 1:
//   VA1 = 2301 x 12340 \ 10000 = 2839        VAR1 = sqrt(2839^2 - 2781^2) - 0.5 = 570.4 -> 570
//   VA2 = 2298 x 11870 \ 10000 = 2727        VAR2 = sqrt(2727^2 - 2655^2) - 0.5 = 622.0 -> 622
//   VA3 = 2306 x 13020 \ 10000 = 3002        VAR3 = sqrt(3002^2 - 2902^2) - 0.5 = 767.9 -> 768
//   PF1 = 10005 x 2781 / 2839 \ 10 = 980     PF2 = 974     PF3 = 967
//   V12 = sqrt(2301^2 + 2298^2 + 2301 x 2298) - 0.5 = 3982.3, V23 = 3986.7, V31 = 3989.3
//   1P2W: VA = sqrt(2781^2 + 570^2) = 2838.8, PF = 10005 x 2781 / 2838.8 \ 10 = 980
//   1P3W: W = 2781 + 2655, VAR = -(570 + 622), VA = sqrt(5436^2 + 1192^2) = 5565.1, PF = 977
//   3P4W: W = 8338, VAR = -1960 (the currents lag), VA = sqrt(8338^2 + 1960^2) = 8565.3, PF = 974
TEST(LivePowerTexts, EveryWiringShowsTheWorkedLoad) {
  const std::string phase_1 = "230.1V|12.34A|2.781KW|2.839KVA|-0.570KVAR|0.98|-011.6|";
  const std::string phase_2 = "229.8V|11.87A|2.655KW|2.727KVA|-0.622KVAR|0.97|-013.2|";
  const std::string phase_3 = "230.6V|13.02A|2.902KW|3.002KVA|-0.768KVAR|0.96|-014.8|";
  const std::string lines = "398.2V|398.7V|398.9V|", no_phase = "|||||||", no_lines = "|||";
  struct Row {
    Wiring wiring;
    std::string phase_2, phase_3, lines, system, name;
  };
  for (const Row& row :
       {Row{Wiring::w1p2w, no_phase, no_phase, no_lines, "2.781KW|-0.570KVAR|2.839KVA|0.98|", "1P2W"},
        Row{Wiring::w1p3w, phase_2, no_phase, no_lines, "5.436KW|-1.192KVAR|5.565KVA|0.97|", "1P3W"},
        Row{Wiring::w3p3w, phase_2, phase_3, lines, "8.338KW|-1.960KVAR|8.565KVA|0.97|", "3P3W"},
        Row{Wiring::w3p4w, phase_2, phase_3, lines, "8.338KW|-1.960KVAR|8.565KVA|0.97|", "3P4W"}}) {
    WorkedLoad load;
    load.start_wired(row.wiring);
    EXPECT_EQ(load.values("V1 I1 W1 VA1 VAR1 PF1 Phase1"), phase_1) << row.name;
    EXPECT_EQ(load.values("V2 I2 W2 VA2 VAR2 PF2 Phase2"), row.phase_2) << row.name;
    EXPECT_EQ(load.values("V3 I3 W3 VA3 VAR3 PF3 Phase3"), row.phase_3) << row.name;
    EXPECT_EQ(load.values("V12 V23 V31"), row.lines) << row.name;
    EXPECT_EQ(load.values("W_sys VAR_sys VA_sys PF_sys"), row.system) << row.name;
    EXPECT_EQ(load.text("power_system"), row.name);
    EXPECT_EQ(load.window()["V1_value"].visible, row.wiring != Wiring::w3p3w) << row.name;
    EXPECT_EQ(load.text("status_link"), "linked");
  }
}

struct LivePower : testing::Test, WorkedLoad {};

// One sampling instant of 2 s: 8338 x 2 / 3600 = 4.6 -> 5, -1960 x 2 / 3600 = -1.1, 8565.3 x 2 / 3600 = 4.8
// -> 5. The demand is the average of a period.
TEST_F(LivePower, EnergyAdvancesOncePerSamplingInstantAndDemandOncePerPeriod) {
  meter.settings().md_period = 1;
  start_wired(Wiring::w3p4w);
  EXPECT_EQ(values("WH_sys VARH_sys VAH_sys PFH_sys"), "0.005KWH|-0.001KVARH|0.005KVAH|0.97H|");
  world.run_for(55);
  EXPECT_EQ(values("W_MD W_AD VA_MD VA_AD"), "------||------||");
  world.run_for(10);
  EXPECT_EQ(values("W_MD W_AD VA_MD VA_AD"), "8.338KW|8.338KW|8.565KVA|8.565KVA|");
  EXPECT_LT(program().live.chain.readings.demand_samples, 10) << "a new period has begun";
  fix_phase(3, {2306, 13020, 1902, -1200, -1052});
  world.run_for(120);
  EXPECT_EQ(values("W_MD W_AD"), "8.338KW|7.338KW|");
}

TEST_F(LivePower, OverRangeShowsInAllThatDependsOnItAndWhatIsDeadHasNoAngle) {
  start_wired(Wiring::w3p4w);
  const double energy = program().live.chain.readings.energy_wh;
  fix_phase(2, {2298, -1, -1, 1200, 1332});
  world.run_for(5);
  EXPECT_EQ(values("V2 I2 W2 VA2 VAR2 PF2 Phase2"), "229.8V|  OL |  OL |  OL |  OL |  OL |  OL |");
  EXPECT_EQ(values("W_sys VAR_sys VA_sys PF_sys WH_sys"), "  OL |  OL |  OL |   OL |  OL |");
  EXPECT_EQ(values("V1 I1 W1 VA1 VAR1 PF1 Phase1"), "230.1V|12.34A|2.781KW|2.839KVA|-0.570KVAR|0.98|-011.6|");
  EXPECT_EQ(program().live.chain.readings.energy_wh, energy);
  fix_phase(1, {0, 12340, 0, 777, 116});
  fix_phase(2, {2298, 0, 0, 1200, 999});
  world.run_for(1);
  EXPECT_EQ(program().live.chain.raw.v_angle[0], 0);
  EXPECT_EQ(program().live.chain.raw.i_angle[1], 0);
  EXPECT_EQ(values("Phase1 Phase2 PF1"), "-011.6|120.0|0.00|");
}

// A phase that is not in use counts nothing, even when it was over range before the wiring changed.
TEST_F(LivePower, AnUnusedPhaseDoesNotReachTheSystem) {
  start_wired(Wiring::w3p4w);
  fix_phase(3, {2306, -1, -1, -1200, -1052});
  world.run_for(1);
  EXPECT_EQ(text("W_sys_value"), "  OL ");
  meter.settings().wiring = Wiring::w1p2w;
  click("get_hz");
  world.run_for(1);
  EXPECT_EQ(text("power_system"), "1P2W");
  EXPECT_EQ(text("W_sys_value"), "2.781KW");
  fix_phase(1, {2301, 12340, 17999, 0, 116});
  world.run_for(1);
  EXPECT_EQ(values("W1 W_sys"), "17.99KW|18.00KW|") << "the phase cuts, the system rounds";
}

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
  std::string chosen() const {
    std::string names;
    for (const PhasorButton& button : phasor_buttons())
      if (form()[button.name].checked) names += button.name;
    return names;
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
    EXPECT_EQ(chosen(), command);
  }
  click("v_only", "PhasorForm");
  click("hide_vxy", "PhasorForm");
  EXPECT_EQ(chosen(), "v_only") << "it shows no line voltages that could be hidden";
  window("PhasorForm").resized();
  EXPECT_EQ(visible(), "111111111111") << "as after loading";
  EXPECT_EQ(chosen(), "vi_all");
}

TEST_F(PhasorTest, EachFrameRedrawsOnceWhileTheWindowIsVisible) {
  for (int frame = 0; frame < 6; ++frame) {
    const std::string before = form()["Text1"].text;
    ASSERT_TRUE(world.run_until([&] { return form()["Text1"].text != before; }, 0.6));
    EXPECT_NE(form()["Text1"].text.empty(), before.empty());
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
  using Row = std::array<const char*, 3>;
  for (const auto& [gone_with, on, hint] : {Row{"print_phasor", "PhasorForm", "Print sent to LaserJet & Co."},
                                            Row{"phasor_button", "MeterRec", ""}}) {
    world.printer.failure = PrintFailure::failed;
    click("print_phasor", "PhasorForm");
    EXPECT_EQ(form()["status_hint"].text, "The document could not be printed.");
    world.printer.failure = PrintFailure::none;
    click(gone_with, on);
    EXPECT_EQ(form()["status_hint"].text, hint) << gone_with;
  }
  window("PhasorForm").closed();
  program().link.status.meter_mode = harmonics_mode;
  click("phasor_button");
  EXPECT_FALSE(form().visible());
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"Not in power mode, please press the POWER button"});
}

}  // namespace
}  // namespace halden
