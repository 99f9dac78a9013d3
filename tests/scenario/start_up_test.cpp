#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct StartUp : testing::Test, Journey {};

TEST_F(StartUp, WithoutAConfiguredPortTheWindowIsShownAndQueriesFailUntilOneIsChosen) {
  start();
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"Select COM port from the OPTION menu"});
  EXPECT_TRUE(window().visible());
  EXPECT_FALSE(world.timer1.enabled() || world.timer2.enabled());
  EXPECT_EQ(text("Label1_5"), "11/22/2026");
  EXPECT_EQ(text("comm_port"), "COM");
  EXPECT_EQ(text("status_link"), "no port");
  click("OpenPlotFile");
  EXPECT_EQ(now_s(), 0) << "nothing to wait for";
  world.dialogs.messages.clear();
  click("sel_language_1");
  EXPECT_EQ(text("zmenu"), "檔案");
  port.refuse(2, PortRefusal::in_use);
  click("port_number_2");
  EXPECT_EQ(world.dialogs.message_texts(), (Texts{status_failed, "COM 2 not available"}));
  EXPECT_EQ(port.state(), PortState::closed);
  EXPECT_FALSE(world.timer2.enabled());
  click("port_number_3");
  EXPECT_EQ(text("comm_port"), "COM 3");
  EXPECT_EQ(text("PQA_mode"), "電力模式");
  EXPECT_TRUE(world.timer2.enabled());
}

TEST_F(StartUp, TheStoredPortIsOpenedAskedAndPolledBehindTheSplash) {
  meter.settings().ct_ratio = 20;
  meter.settings().frequency_code = 2;
  meter.settings().clock_start = {2026, 5, 12, 9, 30, 0};
  const Window* splash = nullptr;
  world.user_does(4.5, [&] {
    splash = &window("CHKSPEED");
    EXPECT_TRUE(splash->visible());
    EXPECT_EQ(splash->caption(), "Status");
    EXPECT_EQ((*splash)["Text1"].text, "Working, please wait");
    EXPECT_EQ((*splash)["notice_port"].text, "COM 12, simulated meter");
    program().link.query.show_progress();
    EXPECT_EQ((*splash)["notice_progress"].value, 38) << "3.5 of 9 s";
    EXPECT_FALSE(window().visible());
  });
  start_on_port(12);
  ASSERT_NE(splash, nullptr);
  EXPECT_FALSE(splash->visible());
  EXPECT_TRUE(window().visible());
  EXPECT_EQ(world.dialogs.message_texts(), Texts{});
  EXPECT_EQ(text("comm_port"), "COM 12");
  EXPECT_EQ(text("PQA_mode"), "Power Mode");
  EXPECT_EQ(text("power_system"), "3P4W");
  EXPECT_EQ(values("HZ ct pt sec md"), "60|20|1|2|15|");
  // The simulated meter's clock runs from the moment it is first spoken to.
  EXPECT_EQ(window("Logger")["Text1_1"].text, "2026-05-12");
  EXPECT_EQ(window("Logger")["Text1_2"].text.substr(0, 6), "09:30:");
  // 1 s after opening, 3 + 1 s before "?", 5 s for the reply, 1 s before the first live request.
  EXPECT_NEAR(now_s(), 11.0, 0.05);
  EXPECT_EQ(received(), "? ");
  EXPECT_NEAR(meter.log()[0].time_s, 5.0, 0.03);
  EXPECT_NEAR(meter.log()[1].time_s, 11.0, 0.05);
  EXPECT_TRUE(world.timer1.enabled() && world.timer2.enabled());
}

TEST_F(StartUp, ThePortGivenAtTheStartCountsOnlyWhereNoneIsStored) {
  start(1);
  EXPECT_EQ(text("comm_port"), "COM 1");
  EXPECT_EQ(world.dialogs.message_texts(), Texts{});
  EXPECT_EQ(world.files.contents.count("work/commport.dat"), 0u) << "only the COM menu stores a port";
  world.files.contents["work/commport.dat"] = "7\n";
  start(1);
  EXPECT_EQ(text("comm_port"), "COM 7");
}

TEST(RefusedAtTheStart, AStoredPortIsNamedAndTheCauseStandsInTheStatusLine) {
  const char* const no_number = "COM 0: there are only the ports COM 1 to COM 16.";
  const std::tuple<std::string, PortRefusal, std::string, const char*> rows[] = {
      {"3\r\n", PortRefusal::missing, "3", "simulated meter is not there. Is the adapter plugged in?"},
      {"3", PortRefusal::in_use, "3",
       "simulated meter is in use by another program. If none uses it, delete the lock file "
       "/tmp/LCK..ttyUSB2."},
      {" 3 \r\n4", PortRefusal::forbidden, "3",
       "simulated meter: no permission. Add yourself to the group dialout and log in again."},
      {"3\n", PortRefusal::not_serial, "3", "simulated meter is not a serial port."},
      {"17\n", PortRefusal::none, "17", "COM 17: there are only the ports COM 1 to COM 16."},
      {"", PortRefusal::none, "", no_number},
      {"unreadable", PortRefusal::none, "", no_number},
      {"nonsense", PortRefusal::none, "nonsense", no_number}};
  for (const auto& [content, refusal, named, hint] : rows) {
    Journey journey;
    if (refusal != PortRefusal::none) journey.port.refuse(3, refusal, "/tmp/LCK..ttyUSB2");
    journey.world.files.contents["work/commport.dat"] = content;
    if (content == "unreadable")
      journey.world.files.read_failures["work/commport.dat"] = FileFailure::forbidden;
    journey.start();
    EXPECT_EQ(journey.world.dialogs.message_texts(),
              Texts{"Users select comm port " + named + " is not available"});
    EXPECT_EQ(journey.text("status_hint"), hint);
    EXPECT_TRUE(journey.window().visible());
    EXPECT_FALSE(journey.world.timer2.enabled());
    EXPECT_EQ(journey.received(), "");
  }
}

TEST_F(StartUp, TheFirstCharacterOfTheLanguageFileDecides) {
  for (const auto& [content, file_menu] : {std::pair("1\r\n", "檔案"),
                                           {"1", "檔案"},
                                           {"0\r\n", "File"},
                                           {" 1\r\n", "File"},
                                           {"", "File"},
                                           {"\xFF\xFE", "File"}}) {
    world.files.contents["work/language.pha"] = content;
    start();
    EXPECT_EQ(text("zmenu"), file_menu) << "\"" << content << "\"";
    EXPECT_EQ(window()["sel_language_1"].checked, file_menu == std::string("檔案"));
  }
  world.files.contents["work/language.pha"] = "1";
  start_on_port(1);
  EXPECT_EQ(text("PQA_mode"), "電力模式");
  EXPECT_EQ(text("power_system"), "三相四線");
}

TEST_F(StartUp, ASilentMeterIsReportedAndPollingGoesOn) {
  meter.faults().silence = true;
  start_on_port(1);
  EXPECT_EQ(world.dialogs.message_texts(), Texts{status_failed});
  EXPECT_TRUE(window().visible());
  EXPECT_FALSE(window("CHKSPEED").visible());
  EXPECT_EQ(program().link.status.ct_ratio, 1);
  EXPECT_TRUE(world.timer2.enabled());
  meter.faults().silence = false;
  world.run_for(3);
  EXPECT_EQ(text("V1_value").back(), 'V') << "readings come as soon as the meter answers";
}

}  // namespace
}  // namespace halden
