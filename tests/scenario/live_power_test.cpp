#include "program_test_base.h"

namespace halden {
namespace {

using simulator::Wiring;

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

TEST_F(LivePower, APhaseWithoutVoltageOrCurrentHasNoAngle) {
  fix_phase(1, {0, 12340, 0, 777, 116});
  fix_phase(2, {2298, 0, 0, 1200, 999});
  fix_phase(3, {2306, 13020, 2902, -1200, -1052});
  start_on_port(1);
  world.run_for(0.6);
  EXPECT_EQ(program().live.chain.raw.v_angle[0], 0);
  EXPECT_EQ(program().live.chain.raw.i_angle[1], 0);
  EXPECT_EQ(values("Phase1 Phase2 PF1"), "-011.6|120.0|0.00|");
}

TEST_F(LivePower, OverRangeShowsInAllThatDependsOnItAndAddsNothing) {
  start_wired(Wiring::w3p4w);
  const double energy = program().live.chain.readings.energy_wh;
  fix_phase(2, {2298, -1, -1, 1200, 1332});
  world.run_for(5);
  EXPECT_EQ(values("V2 I2 W2 VA2 VAR2 PF2 Phase2"), "229.8V|  OL |  OL |  OL |  OL |  OL |  OL |");
  EXPECT_EQ(values("W_sys VAR_sys VA_sys PF_sys WH_sys"), "  OL |  OL |  OL |   OL |  OL |");
  EXPECT_EQ(values("V1 I1 W1 VA1 VAR1 PF1 Phase1"), "230.1V|12.34A|2.781KW|2.839KVA|-0.570KVAR|0.98|-011.6|");
  EXPECT_EQ(program().live.chain.readings.energy_wh, energy);
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

}  // namespace
}  // namespace halden
