#include "companion_test_base.h"
#include "readings/angles.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

TEST(StartUp, WithoutAConfiguredPortTheUserIsToldAndTheWindowIsShown) {
  Journey journey;
  journey.start();
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{"Select COM port from the OPTION menu"});
  EXPECT_TRUE(journey.window().visible());
  EXPECT_FALSE(journey.world.timer1.enabled() || journey.world.timer2.enabled());
  EXPECT_EQ(journey.port.state(), PortState::closed);
  EXPECT_EQ(journey.program().link.port_ready, 0);
  EXPECT_EQ(journey.text("Label1_5"), "11/22/2026");
  EXPECT_EQ(journey.text("comm_port"), "COM");
  EXPECT_EQ(journey.text("status_link"), "no port");
  EXPECT_EQ(journey.world.clock.monotonic_s(), 0) << "nothing to wait for";
}

TEST(StartUp, InitialValuesStandAsDesigned) {
  Journey journey;
  journey.start();
  const Program& at = journey.program();
  EXPECT_EQ(at.readings.demand_w_text, "------");
  EXPECT_EQ(at.readings.demand_va_text, "------");
  EXPECT_EQ(at.phasor_geometry.label_radius, 2050);
  EXPECT_EQ(at.phasor_geometry.line_label_radius, 2600);
  EXPECT_DOUBLE_EQ(tenths_to_radians, 0.0017453277777777778);  // 3.14159 / 1800
  EXPECT_FLOAT_EQ(radians_to_tenths, 572.95827F);              // 1800 / 3.14159
  EXPECT_EQ(at.link.display_mode, 1);
  EXPECT_EQ(at.status.meter_mode, 1);
  EXPECT_EQ(at.status.wiring_system, 3);
  EXPECT_EQ(at.status.ct_ratio, 1) << "0 becomes 1";
  EXPECT_EQ(at.status.pt_ratio, 1);
  EXPECT_EQ(at.status.current_scale, 1.0F);
  EXPECT_EQ(at.harmonics_view.harmonic_count, 99);
  EXPECT_EQ(at.harmonics_plot.harmonics_shown, 100);
  EXPECT_EQ(at.sample_clock.sample_counting, 1);
  EXPECT_EQ(at.sample_clock.clock_tick_ms, 1000);
}

TEST(StartUp, TheStoredPortIsOpenedAskedAndPolled) {
  MeterSettings settings;
  settings.ct_ratio = 20;
  settings.frequency_code = 2;
  Journey journey(12 * 3600.0, settings);
  journey.start_on_port(12);
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{});
  EXPECT_EQ(journey.text("comm_port"), "COM 12");
  EXPECT_TRUE(journey.window()["port_number_12"].checked);
  EXPECT_EQ(journey.text("PQA_mode"), "Power Mode");
  EXPECT_EQ(journey.text("power_system"), "3P4W");
  EXPECT_EQ(journey.text("HZ_value"), "60");
  EXPECT_EQ(journey.text("ct_value"), "20");
  EXPECT_EQ(journey.text("pt_value"), "1");
  EXPECT_EQ(journey.text("sec_value"), "2");
  EXPECT_EQ(journey.text("md_value"), "15");
  EXPECT_TRUE(journey.window().visible());
  EXPECT_FALSE(journey.companion->screen().chkspeed.visible());
  EXPECT_EQ(journey.program().link.port_ready, 1);
  // 1 s after opening, 3 + 1 s before "?", 5 s for the reply, 1 s before the first live request.
  EXPECT_NEAR(journey.world.clock.monotonic_s(), 11.0, 0.05);
  EXPECT_EQ(journey.received(), "? ");
  EXPECT_NEAR(journey.meter.log()[0].time_s, 5.0, 0.03);
  EXPECT_NEAR(journey.meter.log()[1].time_s, 11.0, 0.05);
  EXPECT_TRUE(journey.world.timer1.enabled() && journey.world.timer2.enabled());
}

TEST(StartUp, TheMeterClockReachesTheDataloggerWindow) {
  Journey journey;
  journey.meter.settings().clock_start = {2026, 5, 12, 9, 30, 0};
  journey.start_on_port(1);
  // The simulated meter's clock runs from the moment it is first spoken to.
  EXPECT_EQ(journey.companion->screen().logger["Text1_1"].text, "2026-05-12");
  EXPECT_EQ(journey.companion->screen().logger["Text1_2"].text.substr(0, 6), "09:30:");
}

TEST(StartUp, ThePortGivenAtTheStartCountsOnlyWhereNoneIsStored) {
  Journey fresh;
  fresh.start(1);
  EXPECT_EQ(fresh.text("comm_port"), "COM 1");
  EXPECT_EQ(fresh.world.dialogs.message_texts(), Texts{});
  EXPECT_EQ(fresh.world.files.contents.count("work/commport.dat"), 0u) << "only the COM menu stores a port";
  Journey stored;
  stored.world.files.contents["work/commport.dat"] = "7\n";
  stored.start(1);
  EXPECT_EQ(stored.text("comm_port"), "COM 7");
}

struct RefusedPort {
  const char* content;
  PortRefusal refusal;
  const char* message;
  const char* hint;
};

TEST(StartUp, AStoredPortThatDoesNotOpenIsNamedAndTheCauseStandsInTheStatusLine) {
  for (const RefusedPort& row :
       {RefusedPort{"3\r\n", PortRefusal::missing, "Users select comm port 3 is not available",
                    "simulated meter is not there. Is the adapter plugged in?"},
        RefusedPort{"3", PortRefusal::in_use, "Users select comm port 3 is not available",
                    "simulated meter is in use by another program."},
        RefusedPort{" 3 \r\n4", PortRefusal::forbidden, "Users select comm port 3 is not available",
                    "simulated meter: no permission. Add yourself to the group dialout and log in again."},
        RefusedPort{"3\n", PortRefusal::not_serial, "Users select comm port 3 is not available",
                    "simulated meter is not a serial port."},
        RefusedPort{"17\n", PortRefusal::none, "Users select comm port 17 is not available",
                    "COM 17: there are only the ports COM 1 to COM 16."},
        RefusedPort{"", PortRefusal::none, "Users select comm port  is not available",
                    "COM 0: there are only the ports COM 1 to COM 16."},
        RefusedPort{"nonsense", PortRefusal::none, "Users select comm port nonsense is not available",
                    "COM 0: there are only the ports COM 1 to COM 16."}}) {
    Journey journey;
    if (row.refusal != PortRefusal::none) journey.port.refuse(3, row.refusal);
    journey.world.files.contents["work/commport.dat"] = row.content;
    journey.start();
    EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{row.message});
    EXPECT_EQ(journey.text("status_hint"), row.hint);
    EXPECT_TRUE(journey.window().visible());
    EXPECT_FALSE(journey.world.timer2.enabled());
    EXPECT_EQ(journey.received(), "");
  }
}

TEST(StartUp, AnUnreadableConfigurationIsNoMissingOne) {
  Journey journey;
  journey.world.files.read_failures = {{"work/commport.dat", FileFailure::forbidden},
                                       {"work/language.pha", FileFailure::forbidden}};
  journey.start();
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{"Users select comm port  is not available"});
  EXPECT_EQ(journey.program().link.language, 0);
}

TEST(StartUp, TheFirstCharacterOfTheLanguageFileDecides) {
  struct Case {
    const char* content;
    const char* file_menu;
  };
  for (const Case& row :
       {Case{"1\r\n", "檔案"}, Case{"1", "檔案"}, Case{"0\r\n", "File"}, Case{" 1\r\n", "File"},
        Case{"", "File"}, Case{"x1", "File"}, Case{"7", "File"}, Case{"\xFF\xFE", "File"}}) {
    Journey journey;
    journey.world.files.contents["work/language.pha"] = row.content;
    journey.start();
    EXPECT_EQ(journey.text("zmenu"), row.file_menu) << "\"" << row.content << "\"";
  }
  Journey chinese_user;
  chinese_user.world.files.contents["work/language.pha"] = "1";
  chinese_user.start_on_port(1);
  EXPECT_EQ(chinese_user.text("PQA_mode"), "電力模式");
  EXPECT_EQ(chinese_user.text("power_system"), "三相四線");
}

TEST(StartUp, ASilentMeterIsReportedAndPollingGoesOn) {
  Journey journey;
  journey.meter.faults().silence = true;
  journey.start_on_port(1);
  const std::string failed =
      "Meter status could not be obtained, please check connections, com port, etc, and try again.";
  EXPECT_EQ(journey.world.dialogs.message_texts(), Texts{failed});
  EXPECT_TRUE(journey.window().visible());
  EXPECT_FALSE(journey.companion->screen().chkspeed.visible());
  EXPECT_EQ(journey.text("ct_value"), "") << "designer value";
  EXPECT_EQ(journey.program().status.ct_ratio, 1);
  EXPECT_TRUE(journey.world.timer2.enabled());
  journey.meter.faults().silence = false;
  journey.world.run_for(3);
  EXPECT_EQ(journey.text("V1_value").back(), 'V') << "readings come as soon as the meter answers";
}

TEST(StartUp, TheSplashIsShownWhileTheMeterIsAsked) {
  Journey journey;
  int seen = 0;
  journey.world.user_does(4.5, [&] {
    const Window& splash = journey.companion->screen().chkspeed;
    EXPECT_TRUE(splash.visible());
    EXPECT_EQ(splash.caption(), "Status");
    EXPECT_EQ(splash["Text1"].text, "Working, please wait");
    EXPECT_FALSE(journey.window().visible());
    ++seen;
  });
  journey.start_on_port(1);
  EXPECT_EQ(seen, 1);
}

TEST(StartUp, EndingTheProgramWhileTheMeterIsAskedSendsNothingMore) {
  Journey journey;
  journey.world.user_does(4.5, [&] { journey.world.shell.end_program(); });
  journey.start_on_port(1);
  EXPECT_TRUE(journey.world.ended());
  EXPECT_LT(journey.world.clock.monotonic_s(), 5.1);
  EXPECT_EQ(journey.received(), "");
  EXPECT_FALSE(journey.window().visible());
}

}  // namespace
}  // namespace halden
