#include <algorithm>

#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct Changes : testing::Test, Journey {
  Changes() { start_on_port(1); }

  std::string stored(const std::string& name) { return world.files.contents["work/" + name]; }
};

TEST_F(Changes, TheLanguageIsKeptAndTheCaptionsOfTheMeterFollow) {
  click("sel_language_1");
  EXPECT_EQ(stored("language.pha"), "1\r\n");
  EXPECT_EQ(text("zmenu"), "檔案");
  EXPECT_EQ(text("PQA_mode"), "電力模式");
  EXPECT_EQ(text("power_system"), "三相四線");
  EXPECT_EQ(text("status_recording"), "未記錄");
  std::string logger;
  for (const char* name :
       {"Label2", "Panel3D2", "Command1", "Command2", "Command3", "Read_All", "DL_HC", "DL_All"})
    logger += window("Logger")[name].text + "|";
  EXPECT_EQ(logger,
            "讀取記錄器設定|記錄器設定|清除所有記錄|下載諧波記錄|下載驟升驟降記錄|下載電力記錄|下載視窗記錄|"
            "下載所有檔案|");
  EXPECT_TRUE(window()["sel_language_1"].checked);
  EXPECT_EQ(window()["port_number_1"].tooltip, "simulated meter，已接上");
  click("sel_language_0");
  EXPECT_EQ(stored("language.pha"), "0\r\n");
  EXPECT_EQ(text("zmenu"), "File");
  EXPECT_EQ(text("PQA_mode"), "Power Mode");
  EXPECT_FALSE(window()["sel_language_1"].checked);
  world.files.write_failure = FileFailure::forbidden;
  click("sel_language_1");
  EXPECT_EQ(text("zmenu"), "檔案") << "for this run";
  EXPECT_EQ(text("status_hint"), "無法寫入工作資料夾，此選擇未能保存。");
  EXPECT_EQ(world.dialogs.message_texts(), Texts{});
}

TEST_F(Changes, AnotherPortIsOpenedStoredAskedAndPolledTwiceOver) {
  const double from_s = now_s();
  click("port_number_5");
  EXPECT_EQ(stored("commport.dat"), "5\r\n");
  EXPECT_EQ(text("comm_port"), "COM 5");
  EXPECT_TRUE(window()["port_number_5"].checked);
  EXPECT_FALSE(window()["port_number_1"].checked);
  // 3 + 1 s, the reply 5 s, and twice the second before a live request.
  EXPECT_NEAR(now_s() - from_s, 11.0, 0.1);
  EXPECT_EQ(received(from_s + 0.001), "?  ");
}

// Also when its adapter has been pulled: it is still looked for, and goes on when it is plugged in again.
TEST_F(Changes, ARefusedChoiceLeavesTheOldPortAsItWas) {
  port.refuse(9, PortRefusal::missing);
  click("port_number_9");
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"COM 9 not available"});
  click("comm_port");
  EXPECT_EQ(window()["port_number_9"].tooltip, "simulated meter, not there");
  EXPECT_TRUE(window()["port_number_9"].tag.empty() && window()["port_number_1"].tag == "present");
  EXPECT_EQ(text("status_hint"), "simulated meter is not there. Is the adapter plugged in?");
  EXPECT_EQ(stored("commport.dat"), "1\r\n");
  EXPECT_EQ(text("comm_port"), "COM 1");
  EXPECT_EQ(port.state(), PortState::open);
  const double from_s = now_s();
  world.run_for(3);
  EXPECT_GT(received(from_s).size(), 4u) << "polling goes on";
  port.unplug();
  world.run_for(2);
  for (const std::string number : {"9", "1"}) {
    click("port_number_" + number);
    EXPECT_EQ(world.dialogs.messages.back().text, "COM " + number + " not available");
    EXPECT_EQ(port.state(), PortState::vanished);
  }
  fix_phase(1, {2222, 12340, 2781, 0, 116});
  port.plug_in();
  EXPECT_TRUE(world.run_until([this] { return text("V1_value") == "222.2V"; }, 12));
}

TEST_F(Changes, ClicksDuringAnExchangeRunOnceWhenItHasEnded) {
  const double from_s = now_s();
  click_after(0, "get_hz");
  click_after(3.5, "sel_language_1");
  click_after(3.6, "sel_language_1");
  click_after(3.7, "get_hz");
  world.run_for(35);
  const std::string bytes = received(from_s);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '?'), 3) << "update, language, update; nothing twice";
  EXPECT_EQ(text("zmenu"), "檔案");
  EXPECT_FALSE(program().link.gate.busy());
}

TEST_F(Changes, PrintSendsAnImageOfTheMainWindowAndTellsWhereToOrWhyNot) {
  click("Command3D1");
  ASSERT_EQ(world.printer.documents.size(), 1u);
  EXPECT_EQ(world.printer.documents[0][0].windows, Texts{"MeterRec"});
  EXPECT_EQ(text("status_hint"), "Print sent to LaserJet & Co.");
  world.printer.failure = PrintFailure::no_printer;
  click("Command3D1");
  EXPECT_EQ(text("status_hint"), "No printer is set up on this computer.");
}

// About centres its first two lines with as many blanks as each is shorter than the last one, which has 49
// characters.
TEST_F(Changes, HelpOpensTheManualBesideTheProgramAndAboutTellsTheVersion) {
  for (const std::string manual : {"0", "1", "2", "3", "4", "5"}) click("HelpManual_" + manual);
  EXPECT_EQ(
      world.shell.opened,
      (Texts{"programs/help/Halden-SW-HELP-EN-V2.0.pdf", "programs/help/Halden-SW-Help-FR_V2.0.pdf",
             "programs/help/Halden-SW-Help-DE_V2.0.pdf", "programs/help/Halden-SW-HELP-ES_V2.0.pdf",
             "programs/help/Halden-SW-Help-IT_V2.0.pdf", "programs/help/Halden-SW-Help-pt-BR_V2.0.pdf"}));
  click("HelpAbout");
  ASSERT_EQ(world.dialogs.messages.size(), 1u);
  EXPECT_EQ(world.dialogs.messages[0].title, "About");
  EXPECT_EQ(world.dialogs.messages[0].text,
            std::string(43, ' ') + "Halden\n\n" + std::string(37, ' ') +
                "Version: 7.0\n\n2026. Free software, GPL 3 or later, no warranty.");
}

// Wherever the program waits, closing the window ends it at once: no more bytes, no more text.
TEST(Closing, DuringEveryWaitEndsTheProgram) {
  for (double moment_s = 0.05; moment_s < 14; moment_s += 0.35) {
    Journey journey;
    journey.world.user_closes(moment_s, [&] { journey.window().closed(); });
    journey.start_on_port(1);
    journey.world.run_for(20);
    EXPECT_TRUE(journey.world.ended()) << moment_s;
    EXPECT_NEAR(journey.now_s(), moment_s, 0.006);
    EXPECT_EQ(journey.received(moment_s + 0.006), "") << moment_s;
  }
}

struct HarmonicsMode : testing::Test, Journey {};

// The meter's own buttons change what it sends; the program learns it from what arrives, and says what to do.
TEST_F(HarmonicsMode, WhatDoesNotFitIsSaid) {
  start_on_port(1);
  world.run_for(10);
  const double energy = program().live.chain.readings.energy_wh;
  const auto link = [this](simulator::MeterMode mode, simulator::Wiring wiring) {
    meter.settings().mode = mode;
    meter.settings().wiring = wiring;
    world.run_for(12);
    return text("status_link") + (window()["status_rate"].visible ? "|rate" : "");
  };
  using simulator::MeterMode, simulator::Wiring;
  EXPECT_EQ(link(MeterMode::harmonics, Wiring::w3p4w), "The meter is in harmonics mode: press Update Now");
  EXPECT_EQ(program().live.chain.readings.energy_wh, energy) << "no energy of another mode";
  EXPECT_EQ(link(MeterMode::power, Wiring::w1p2w), "The meter sends 1 phase, 3P4W was set: press Update Now");
  EXPECT_EQ(link(MeterMode::power, Wiring::w1p3w),
            "The meter sends 2 phases, 3P4W was set: press Update Now");
  click("get_hz");
  EXPECT_EQ(link(MeterMode::power, Wiring::w1p3w), "linked|rate");
  EXPECT_EQ(link(MeterMode::power, Wiring::w3p4w),
            "The meter sends 3 phases, 1P3W was set: press Update Now");
  meter.settings().mode = MeterMode::harmonics;
  click("get_hz");
  EXPECT_EQ(link(MeterMode::harmonics, Wiring::w3p4w), "linked|rate");
  EXPECT_EQ(link(MeterMode::power, Wiring::w3p4w), "The meter is in power mode: press Update Now");
  const auto changed = [this] {
    return text("status_link") != "The meter is in power mode: press Update Now";
  };
  EXPECT_FALSE(world.run_until(changed, 30)) << "it must not flicker whenever counting starts again";
}

}  // namespace
}  // namespace halden
