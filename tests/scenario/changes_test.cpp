#include <algorithm>

#include "companion_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct Changes : testing::Test {
  Changes() { journey.start_on_port(1); }

  // Clicks and runs until the exchange is over.
  void click(const std::string& control) {
    journey.click_after(0, control);
    journey.world.run_for(0.001);
    ASSERT_TRUE(journey.world.run_until([this] { return !journey.program().gate.busy(); }, 60));
  }

  std::string stored(const std::string& name) { return journey.world.files.contents["work/" + name]; }

  Journey journey;
};

TEST_F(Changes, TheLanguageIsKeptAndTheCaptionsOfTheMeterFollow) {
  click("sel_language_1");
  EXPECT_EQ(stored("language.pha"), "1\r\n");
  EXPECT_EQ(journey.text("zmenu"), "檔案");
  EXPECT_EQ(journey.text("PQA_mode"), "電力模式");
  EXPECT_EQ(journey.text("power_system"), "三相四線");
  EXPECT_EQ(journey.text("status_recording"), "未記錄");
  EXPECT_TRUE(journey.window()["sel_language_1"].checked);
  EXPECT_EQ(journey.companion->screen().logger["DL_All"].text, "下載所有檔案");
  journey.world.run_for(1);
  EXPECT_EQ(journey.text("V1_value").back(), 'V') << "polling goes on";
  click("sel_language_0");
  EXPECT_EQ(stored("language.pha"), "0\r\n");
  EXPECT_EQ(journey.text("zmenu"), "File");
  EXPECT_EQ(journey.text("PQA_mode"), "Power Mode");
  EXPECT_FALSE(journey.window()["sel_language_1"].checked);
}

TEST_F(Changes, AnotherPortIsOpenedStoredAskedAndPolledTwiceOver) {
  const double from_s = journey.world.clock.monotonic_s();
  click("port_number_5");
  EXPECT_EQ(stored("commport.dat"), "5\r\n");
  EXPECT_EQ(journey.text("comm_port"), "COM 5");
  EXPECT_TRUE(journey.window()["port_number_5"].checked);
  EXPECT_FALSE(journey.window()["port_number_1"].checked);
  // 3 + 1 s, the reply 5 s, and twice the second before a live request.
  EXPECT_NEAR(journey.world.clock.monotonic_s() - from_s, 11.0, 0.1);
  EXPECT_EQ(journey.received(from_s + 0.001), "?  ");
}

TEST_F(Changes, APortThatDoesNotOpenLeavesTheOldOneOpenAndPolling) {
  journey.port.refuse(9, PortRefusal::missing);
  click("port_number_9");
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{"COM 9 not available"});
  EXPECT_EQ(journey.text("status_hint"), "simulated meter is not there. Is the adapter plugged in?");
  EXPECT_EQ(stored("commport.dat"), "1\r\n");
  EXPECT_EQ(journey.text("comm_port"), "COM 1");
  EXPECT_EQ(journey.port.state(), PortState::open);
  const double from_s = journey.world.clock.monotonic_s();
  journey.world.run_for(3);
  EXPECT_GT(journey.received(from_s).size(), 4u) << "polling goes on";
}

// The adapter is pulled, another port is tried in vain, the adapter is plugged in again.
TEST_F(Changes, AVanishedPortIsStillLookedForAfterARefusedChoice) {
  journey.port.refuse(9, PortRefusal::missing);
  journey.port.unplug();
  journey.world.run_for(2);
  click("port_number_9");
  EXPECT_EQ(journey.world.dialogs.messages.back().text, "COM 9 not available");
  EXPECT_EQ(journey.port.state(), PortState::vanished);
  click("port_number_1");
  EXPECT_EQ(journey.world.dialogs.messages.back().text, "COM 1 not available");
  EXPECT_EQ(journey.port.state(), PortState::vanished);
  journey.fix_phase(1, {2222, 12340, 2781, 0, 116});
  journey.port.plug_in();
  EXPECT_TRUE(journey.world.run_until([this] { return journey.text("V1_value") == "222.2V"; }, 12));
}

TEST(ChangesWithoutPort, TheFirstPortCanBeChosenFromTheMenuAndARefusalLeavesNone) {
  Journey journey;
  journey.start();
  journey.port.refuse(2, PortRefusal::in_use);
  journey.companion->click("port_number_2");
  EXPECT_EQ(journey.world.dialogs.message_texts(),
            (Texts{"Select COM port from the OPTION menu", "COM 2 not available"}));
  EXPECT_EQ(journey.port.state(), PortState::closed);
  EXPECT_FALSE(journey.world.timer2.enabled());
  journey.companion->click("port_number_3");
  EXPECT_EQ(journey.text("comm_port"), "COM 3");
  EXPECT_EQ(journey.text("PQA_mode"), "Power Mode");
  EXPECT_TRUE(journey.world.timer2.enabled());
}

TEST(ChangesWithoutPort, AskingTheMeterWithoutAPortIsAFailedQuery) {
  Journey journey;
  journey.start();
  journey.companion->click("sel_language_1");
  EXPECT_EQ(journey.world.dialogs.messages.back().text,
            "Meter status could not be obtained, please check connections, com port, etc, and try again.");
  EXPECT_EQ(journey.text("zmenu"), "檔案");
  EXPECT_FALSE(journey.world.timer2.enabled());
}

TEST_F(Changes, AReadOnlyFolderIsToldAndTheChoiceHoldsForThisRun) {
  journey.world.files.write_failure = FileFailure::forbidden;
  click("sel_language_1");
  EXPECT_EQ(journey.text("zmenu"), "檔案");
  EXPECT_EQ(journey.text("status_hint"), "無法寫入工作資料夾，此選擇未能保存。");
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{});
}

TEST_F(Changes, ClicksDuringAnExchangeRunOnceWhenItHasEnded) {
  const double from_s = journey.world.clock.monotonic_s();
  journey.click_after(0, "get_hz");
  journey.click_after(3.5, "sel_language_1");
  journey.click_after(3.6, "sel_language_1");
  journey.click_after(3.7, "get_hz");
  journey.world.run_for(35);
  const std::string bytes = journey.received(from_s);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '?'), 3) << "update, language, update; nothing twice";
  EXPECT_EQ(journey.text("zmenu"), "檔案");
  EXPECT_FALSE(journey.program().gate.busy());
}

TEST_F(Changes, UpdateNowReadsWhatChangedAtTheMeterAndStartsTheEnergiesAnew) {
  journey.world.run_for(20);
  journey.meter.settings().wiring = Wiring::w3p3w;
  journey.meter.settings().ct_ratio = 40;
  journey.meter.settings().clamp_flags = 0x600;
  journey.meter.settings().frequency_code = 0;
  click("get_hz");
  EXPECT_EQ(journey.text("ct_value"), "40");
  EXPECT_EQ(journey.text("HZ_value"), "Auto");
  EXPECT_EQ(journey.text("power_system"), "3P3W");
  EXPECT_FALSE(journey.window()["V1_value"].visible);
  EXPECT_FLOAT_EQ(journey.program().status.current_scale, 1.2F);
  EXPECT_EQ(journey.text("WH_sys_value"), "0.0");
}

TEST_F(Changes, EntriesWithoutAWindowDoNothing) {
  const double from_s = journey.world.clock.monotonic_s();
  for (const char* entry : {"ViewFile", "loggerPWR", "no_such_control"}) journey.companion->click(entry);
  EXPECT_EQ(journey.world.clock.monotonic_s(), from_s);
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{});
}

TEST_F(Changes, PrintSendsAnImageOfTheMainWindowAndTellsWhenItCouldNot) {
  journey.companion->click("Command3D1");
  ASSERT_EQ(journey.world.printer.documents.size(), 1u);
  ASSERT_EQ(journey.world.printer.documents[0].size(), 1u);
  EXPECT_EQ(journey.world.printer.documents[0][0].windows, Texts{"MeterRec"});
  journey.world.printer.failure = PrintFailure::no_printer;
  journey.companion->click("Command3D1");
  EXPECT_EQ(journey.world.printer.documents.size(), 1u);
  EXPECT_EQ(journey.text("status_hint"), "No printer is set up on this computer.");
}

TEST_F(Changes, HelpOpensTheManualBesideTheProgramAndIsSilentWithoutIt) {
  for (int manual = 0; manual < 6; ++manual) journey.companion->click("HelpManual_" + std::to_string(manual));
  EXPECT_EQ(
      journey.world.shell.opened,
      (Texts{"programs/help/Halden-SW-HELP-EN-V2.0.pdf", "programs/help/Halden-SW-Help-FR_V2.0.pdf",
             "programs/help/Halden-SW-Help-DE_V2.0.pdf", "programs/help/Halden-SW-HELP-ES_V2.0.pdf",
             "programs/help/Halden-SW-Help-IT_V2.0.pdf", "programs/help/Halden-SW-Help-pt-BR_V2.0.pdf"}));
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{});
}

TEST_F(Changes, AboutCentresItsFirstTwoLinesWithBlanks) {
  journey.companion->click("HelpAbout");
  ASSERT_EQ(journey.world.dialogs.messages.size(), 1u);
  const Message& about = journey.world.dialogs.messages[0];
  EXPECT_EQ(about.title, "About");
  const std::size_t first = about.text.find("\n\n");
  const std::size_t second = about.text.find("\n\n", first + 2);
  const std::string third = about.text.substr(second + 2);
  EXPECT_EQ(third.find('\n'), std::string::npos);
  EXPECT_NE(third.find("2026"), std::string::npos);
  EXPECT_EQ(about.text.substr(0, first), std::string(third.size() - 6, ' ') + "Halden");
  EXPECT_EQ(about.text.substr(first + 2, second - first - 2),
            std::string(third.size() - 12, ' ') + "Version: 7.0");
}

TEST_F(Changes, ExitEndsTheProgramAndSendsNothingMore) {
  journey.companion->click("quit");
  EXPECT_TRUE(journey.world.ended());
  const double from_s = journey.world.clock.monotonic_s();
  journey.world.run_for(10);
  EXPECT_EQ(journey.received(from_s + 0.001), "");
}

// Wherever the program waits, closing the window ends it at once: no more bytes, no more text.
TEST(Closing, DuringEveryWaitEndsTheProgram) {
  for (double moment_s = 0.05; moment_s < 14; moment_s += 0.35) {
    Journey journey;
    journey.world.user_closes(moment_s, [&] { journey.companion->main_window_closed(); });
    journey.start_on_port(1);
    journey.world.run_for(20);
    EXPECT_TRUE(journey.world.ended()) << moment_s;
    EXPECT_NEAR(journey.world.clock.monotonic_s(), moment_s, 0.006);
    EXPECT_EQ(journey.received(moment_s + 0.006), "") << moment_s;
  }
}

TEST(Closing, WhileAMessageIsOpenEndsTheProgram) {
  Journey journey;
  journey.port.refuse(4, PortRefusal::missing);
  journey.world.dialogs.while_open = [&](const Message&) { journey.companion->main_window_closed(); };
  journey.start();
  EXPECT_TRUE(journey.world.ended());
  EXPECT_FALSE(journey.window().visible()) << "the start-up goes no further";
}

TEST(HarmonicsMode, TheWindowFollowsTheMeterWhenItIsShownOrResized) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  settings.harmonic_order = 60;
  Journey journey(12 * 3600.0, settings);
  journey.start_on_port(1);
  EXPECT_EQ(journey.text("PQA_mode"), "Harmo. and Waveform");
  journey.companion->main_window_resized();
  EXPECT_EQ(journey.program().link.display_mode, 0);
  EXPECT_EQ(journey.program().harmonics_view.harmonic_count, 51);
  EXPECT_EQ(journey.window()["HScroll1"].minimum, 1);
  EXPECT_EQ(journey.window()["HScroll1"].maximum, 51);
  EXPECT_EQ(journey.window()["HScroll1"].value, 51) << "order 60 is beyond the range";
  for (const char* shown :
       {"Harmo_Graph1", "har_index_value", "har_hz_value", "RMS_value", "THD_F", "VI_of_1_value"})
    EXPECT_TRUE(journey.window()[shown].visible) << shown;
  journey.world.run_for(20);
  EXPECT_LT(journey.program().link.poll_buffer.size(), 4000u);
  EXPECT_EQ(journey.program().link.link_lost, 0);

  journey.meter.settings().mode = MeterMode::power;
  journey.companion->click("get_hz");
  journey.companion->main_window_resized();
  EXPECT_EQ(journey.program().link.display_mode, 1);
  EXPECT_FALSE(journey.window()["Harmo_Graph1"].visible);
  EXPECT_FALSE(journey.window()["RMS_value"].visible);
  journey.world.run_for(2);
  EXPECT_EQ(journey.text("V1_value").back(), 'V');
}

TEST(HarmonicsMode, AnAutomaticFrequencyHidesTheFrequencyOfTheOrder) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  settings.frequency_code = 0;
  settings.harmonic_order = 0;
  Journey journey(12 * 3600.0, settings);
  journey.start_on_port(1);
  journey.companion->main_window_resized();
  EXPECT_FALSE(journey.window()["har_hz_value"].visible);
  EXPECT_EQ(journey.window()["HScroll1"].value, 1);
}

}  // namespace
}  // namespace halden
