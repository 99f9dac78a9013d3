// The datalogger beside a simulated meter, in virtual time.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "program_test_base.h"
#include "screen/meter_rec/panels.h"
#include "simulator/faults.h"
#include "simulator/stored_files.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct LoggerJourney : Journey {
  explicit LoggerJourney(double time_of_day_s = 12 * 3600.0) : Journey(time_of_day_s) {
    start_on_port(1);
    world.run_for(1);
    click("loggerPWR");
    world.run_for(1);
    opened_s = now_s();
  }

  // A file of type 0 harmonics, 1 power, 2 hardcopy, whose settings begin as those of a 1P2W recording.
  simulator::LoggerSettings stored(int type, std::string bytes, simulator::MeterClock begin) {
    simulator::LoggerSettings recorded;
    recorded.data_type = type;
    recorded.wiring = 0;
    recorded.sample_seconds = 30;
    recorded.file_start = begin;
    meter.memory().store({recorded, std::move(bytes)});
    return recorded;
  }

  void store_three_files() {
    const std::array group{2300, 5000, -690, 0, -1269};
    std::array<int, 64> record{};
    stored(1, simulator::word_bytes(group), {2009, 5, 12, 15, 30, 59});
    stored(0, simulator::word_bytes(record), {2009, 5, 13, 0, 0, 0});
    stored(2, simulator::word_bytes(std::array{1, -2}), {2009, 12, 31, 23, 59, 58});
  }

  void press(const std::string& control) { click(control, "Logger"); }
  const std::string& logger(const std::string& control) const { return window("Logger")[control].text; }
  const std::string& hint() const { return logger("status_hint"); }
  std::string& file(const std::string& path) { return world.files.contents[path]; }
  std::size_t files_ending_in(std::string_view ending) const {
    return static_cast<std::size_t>(
        std::count_if(world.files.contents.begin(), world.files.contents.end(),
                      [ending](const auto& entry) { return entry.first.ends_with(ending); }));
  }

  // "R 0.0, 0 2.0, ...": what the meter received from then on, with the seconds since.
  std::string log_since(double from_s) const {
    std::string log;
    for (const simulator::ReceivedByte& byte : meter.log()) {
      if (byte.time_s < from_s) continue;
      const std::string name = byte.byte < ' ' ? std::to_string(byte.byte) : std::string(1, byte.byte);
      log += name + " " + std::to_string(std::lround((byte.time_s - from_s) * 10)) + ", ";
    }
    return log;
  }

  double opened_s = 0;
};

// 230 V x 5 A are 1150 VA, and 0.6 of it flow back; 5 A of -690 W over 30 s are -5.75 Wh, shown as -0.006
// KWH. The current of the second record is over range.
TEST(Logger, PowerDataAcrossMidnightIsExactlyTheFile) {
  LoggerJourney j;
  j.meter.settings().md_period = 1;
  j.stored(1, simulator::word_bytes(std::array{2300, 5000, -690, 0, -1269, 2300, -1, 690, 0, -300}),
           {2024, 2, 28, 23, 59, 30});
  const Texts before = {j.text("pt_value"), j.text("sec_value"), j.text(std::string(sample_time_label)),
                        j.program().live.chain.readings.demand_w_text};
  j.world.dialogs.file_answers = {"out.csv"};
  const double start_s = j.now_s();
  j.press("Read_All");
  Texts lines = lines_of(j.file("out.csv"));
  for (std::size_t i = 2; i < lines.size(); ++i) std::erase(lines[i], ' ');
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0], "1P2W,Hz=50,MD=1,SEC=30,CT=1,VT=1,INPUT=V1");
  EXPECT_TRUE(lines[1].starts_with("      DATE,      TIME,        V1,        I1,    Phase1,     W_SYS,"));
  EXPECT_EQ(lines[2],
            "2024-02-28,23:59:30,230.0V,5.000A,126.9,-0.690KW,1.150KVA,0.920KVAR,-0.60,"
            "-0.006KWH,0.010KVAH,0.008KVARH,-0.60H,,,------,------,");
  EXPECT_EQ(lines[3],
            "2024-02-29,00:00:00,230.0V,OL,OL,0.690KW,OL,OL,OL,0.000KWH,OL,OL,-0.60H,0.000KW,OL,0.000KW,OL,");
  EXPECT_EQ(j.file("work/temp_data.pwr"),
            "02300\r\n05000\r\n-00690\r\n00000\r\n-01269\r\n02300\r\n-00001\r\n00690\r\n00000\r\n-00300\r\n");
  EXPECT_EQ(j.world.dialogs.file_questions.back().suggested_name, "20240228235900P.csv");
  EXPECT_EQ(j.hint(), "2 records");
  EXPECT_TRUE(j.world.dialogs.messages.empty() && j.world.dialogs.questions.empty());
  const Texts after = {j.text("pt_value"), j.text("sec_value"), j.text(std::string(sample_time_label)),
                       j.program().live.chain.readings.demand_w_text};
  EXPECT_EQ(before, after);
  // Query 9 s with "?" after 4 s, drain 2 s, wait 1 s; 1 s and 5 s of silence, 2 s, and "?" 4 s later.
  EXPECT_EQ(j.log_since(start_s), "? 40, 4 120, ? 240, ");
}

TEST(Logger, HarmonicsAndHardcopyFollowTheirFormats) {
  LoggerJourney j;
  std::array<int, 64> record{};
  record[0] = 2300, record[1] = 3250, record[2] = 3240, record[4] = 10000, record[54] = 1000;
  record[55] = 500, record[58] = 1;
  j.stored(0, simulator::word_bytes(record) + "\x08\xFC", {2024, 12, 31, 23, 59, 59});
  j.world.dialogs.file_answers = {"h.csv"};
  double start_s = j.now_s();
  j.press("Command2");
  EXPECT_EQ(j.log_since(start_s), "? 40, 4 120, ? 232, ") << "130 bytes";
  const Texts lines = lines_of(j.file("h.csv"));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], "HARMO,Hz=50,MD=15,SEC=30,CT=1,VT=1,INPUT=V1,SYS=1P2W,NO.=51 ,OPTION=%");
  // 2300 x 1000 / sqrt(2,000,000) = 1626
  EXPECT_TRUE(
      lines[2].starts_with("2024-12-31,  23:59:59,    230.0V,    325.0V,   -324.0V,    100.0%,"
                           "    162.6V,    50.0Hz,   0 to 50,       0.0,     100.0,"));
  EXPECT_EQ(j.hint(), "bytes were lost: download again") << "the two bytes behind the record";
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"Data transfer incomplete"});

  j.meter.memory().erase();
  j.stored(3, simulator::word_bytes(std::array{1, -2, 32767}), {2024, 1, 2, 3, 4, 5});
  j.file("c.txt") = "old\r\n";
  j.world.dialogs.file_answers = {"c.txt"};
  j.world.dialogs.confirm_answers = {true};
  j.press("DL_HC");
  EXPECT_EQ(j.file("c.txt"), "old\r\n2024-01-02 03:04:05\r\n00001\r\n-00002\r\n32767\r\n");
  EXPECT_EQ(j.world.dialogs.questions.back().text, "File  c.txt  exists, add data to it");
  EXPECT_EQ(j.window("CHKSPEED").visible(), false);
}

TEST(Logger, TheTransientReportComesWhenItsButtonIsPressed) {
  LoggerJourney j;
  j.world.dialogs.file_answers = {"t.csv", "none.csv"};
  j.meter.memory().transient_report = "9,2,28,23,50,10,100,2200,10\r\n  100:00:15 00120 02\r\n";
  j.world.user_does(12, [&] { j.meter.press_transient(j.now_s()); });  // 1 s drain, 11 s of waiting
  const double start_s = j.now_s();
  j.press("Command3");
  EXPECT_EQ(j.file("t.csv"),
            "TODAY: 11-22-2026\r\nSTART RECORDING:2009-02-28 23:50:10\r\nREF=22.00KV ,SD%=10%\r\n"
            "       NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS\r\n"
            "         1,  00:00:15,2009-03-01,     00:05,     00120,      2(LO)\r\n");
  EXPECT_EQ(j.file("work/temp_data.tra"), j.meter.memory().transient_report);
  EXPECT_NEAR(j.now_s() - start_s, 12 + 51 / 960.0 + 2 + 2, 0.05);
  j.press("Command3");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"No transient data"});
  EXPECT_EQ(j.world.files.contents.count("none.csv"), 0U);
  EXPECT_EQ(j.log_since(start_s), "");
}

TEST(Logger, ThePanelTellsTheSelectedFileAndItsCodes) {
  LoggerJourney j;
  j.press("Read_Status");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"No Data Recorded"});
  const auto panel = [&j] {
    std::string texts;
    for (const char* name : {"SYS_REC_value", "HZ_REC_value", "CT_REC_value", "PT_REC_value", "SEC_REC_value",
                             "MD_REC_value", "Harmo_or_Power_0", "Harmo_or_Power_1", "Text1_1", "Text1_2"})
      texts += j.logger(name) + "|";
    return texts;
  };
  EXPECT_TRUE(panel().starts_with("||||||||"));
  j.store_three_files();
  j.press("Read_Status");
  EXPECT_EQ(panel(), "1P2W|50|1|1|30|15|Power|0|2009-05-12|15:30:59|");
  EXPECT_EQ(j.logger("stored_files"), "3 files");
  j.click("sel_language_1");
  simulator::LoggerSettings odd{4, 0, 4, 3, 1, 22, 21, 6, 0, 0, 0, simulator::MeterClock{}};
  j.meter.memory().erase();
  j.meter.memory().store({odd, ""});
  j.press("Read_Status");
  EXPECT_EQ(panel().substr(0, 20), "?|?|21|22|6|15|?|0|2");
  j.world.dialogs.messages.clear();
  j.press("Read_All");
  j.meter.faults().silence = true;
  j.press("Command2");
  EXPECT_EQ(j.world.dialogs.message_texts(),
            (Texts{"Data stored is not power data, please press the i button to check", status_failed}));
  EXPECT_TRUE(j.world.dialogs.file_questions.empty());
}

TEST(Logger, PollingPausesWhileTheWindowIsOpen) {
  LoggerJourney j;
  j.world.run_for(30);
  EXPECT_EQ(j.received(j.opened_s), "");
  EXPECT_EQ(j.text("status_link"), "paused while the datalogger is open");
  j.click("get_hz");
  j.window("Logger").closed();
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"Close Data Logger Window"});
  EXPECT_FALSE(j.window("Logger").visible());
  j.world.run_for(2);
  EXPECT_EQ(j.text("status_link"), "linked");

  j.world.dialogs.file_answers = {"r.csv"};
  j.click("FileName");
  j.click("auto_record");
  j.world.dialogs.confirm_answers = {false, true};
  j.click("loggerPWR");
  EXPECT_FALSE(j.window("Logger").visible());
  j.click("loggerPWR");
  EXPECT_TRUE(j.window("Logger").visible());
  const std::size_t length = j.file("r.csv").size();
  j.press("Read_Status");
  j.world.run_for(60);
  EXPECT_EQ(j.file("r.csv").size(), length);
  j.window("Logger").closed();
  EXPECT_EQ(j.window("CHKSPEED").visible(), true) << "the notice of the recording";
  j.world.run_for(10);
  EXPECT_GT(j.file("r.csv").size(), length);
  EXPECT_EQ(j.file("r.csv").find("NO COM"), std::string::npos);
}

// 480 bytes a half second: 48 of the 1440 groups have arrived at the click, and the meter goes on for an
// hour.
TEST(Logger, CancelKeepsWhatArrivedAndWaitsForSilence) {
  LoggerJourney j;
  std::string bytes;
  for (int i = 0; i < 1440; ++i) bytes += simulator::word_bytes(std::array{2300, 5000, -690, 0, -1269});
  j.stored(1, bytes, {2024, 1, 2, 3, 4, 5});
  simulator::switch_on("file_sends_on=3600", j.meter.faults());
  j.world.dialogs.file_answers = {"out.csv"};
  j.world.user_does(13.5, [&j] {
    j.click("get_hz");
    j.press("Read_Status");
    EXPECT_EQ(j.text("status_hint"), "Not while the datalogger works with the meter.");
    j.window("Logger").press("transfer_cancel");
    EXPECT_TRUE(j.logger("rate_value").starts_with("94")) << "960 x 1.48 s / 1.5 s, at most 0.1 s old";
  });
  j.world.user_does(600, [&j] {
    EXPECT_EQ(lines_of(j.file("out.csv")).size(), 2U + 142);
    EXPECT_EQ(j.logger("transfer_note"), "The meter is still sending: 9 min 46 s. Cancel stops waiting.");
  });
  const double start_s = j.now_s();
  j.press("Read_All");
  EXPECT_EQ(j.log_since(start_s), "? 40, 4 120, ? 36360, ") << "15 s of file, an hour, 5 s, and 4 s";
  EXPECT_EQ(j.hint(), "cancelled, 142 records");
  EXPECT_TRUE(j.world.dialogs.messages.empty());
  EXPECT_FALSE(j.window("Logger")["transfer_cancel"].visible);
  j.world.run_for(5);
  EXPECT_EQ(j.log_since(start_s), "? 40, 4 120, ? 36360, ") << "no refused click runs later";
}

TEST(Logger, ClosingDuringATransferCancelsIt) {
  LoggerJourney j;
  j.meter.faults().file.sends_on_s = 36000;
  j.store_three_files();
  j.world.dialogs.file_answers = {"out.csv"};
  j.world.user_closes(13, [&j] { j.window("Logger").closed(); });
  j.world.user_does(100, [&j] { j.window("Logger").press("transfer_cancel"); });  // does not wait any longer
  const double start_s = j.now_s();
  j.press("Read_All");
  const Texts messages = j.world.dialogs.message_texts();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_TRUE(messages[0].starts_with("The meter does not stop sending."));
  EXPECT_EQ(messages[1], "Close Data Logger Window");
  EXPECT_EQ(std::ranges::count(j.received(start_s), '?'), 1) << "nothing is asked while the meter sends";
  EXPECT_FALSE(j.window("Logger").visible());
}

// Three phases, seven records: 210 bytes. Of 200 bytes, each one is lost once.
TEST(Logger, EveryLostByteIsNoticed) {
  LoggerJourney j;
  simulator::LoggerSettings recorded = j.stored(1, "", {2024, 1, 2, 3, 4, 5});
  recorded.wiring = 3;
  j.meter.memory().erase();
  j.meter.memory().store({recorded, std::string(210, '\x01')});
  const auto download = [&j](const std::string& fault) {
    j.meter.faults() = {};
    simulator::switch_on(fault, j.meter.faults());
    j.world.dialogs.messages.clear();
    j.world.files.contents.erase("out.csv");
    j.world.dialogs.file_answers = {"out.csv"};
    j.press("Read_All");
    return j.world.dialogs.message_texts() == Texts{"Data transfer incomplete"} &&
           j.hint() == "bytes were lost: download again";
  };
  for (int byte = 0; byte < 200; ++byte) ASSERT_TRUE(download("file_lose=" + std::to_string(byte))) << byte;
  for (const char* fault : {"file_cut=1", "file_cut=180", "file_extra=3", "file_pause=60:6.1"})
    EXPECT_EQ(download(fault), std::string_view(fault) != "file_cut=180") << fault;  // six whole records
  EXPECT_FALSE(download("file_pause=60:5.9")) << "5 s after the second behind the request";
  EXPECT_EQ(lines_of(j.file("out.csv")).size(), 9U);
  // What arrived of a cut record: 40 of 60 bytes are its first phase.
  download("file_cut=40");
  const std::string last = lines_of(j.file("out.csv")).back();
  EXPECT_EQ(last.size(), 38U * 11);
  EXPECT_EQ(last.substr(0, 88),
            "2024-01-02,  03:04:35,          ,          ,          ,    025.7V,          ,          ,");
}

TEST(Logger, AllFilesGetTheirNamesAndASecondRunFetchesWhatIsMissing) {
  LoggerJourney j;
  j.store_three_files();
  j.meter.memory().select(1);
  const double start_s = j.now_s();
  j.press("DL_All");
  // Status 9 s, 1 s; file 0 with one digit, then its status; the file; and so on with two digits.
  EXPECT_TRUE(j.log_since(start_s).starts_with("? 40, R 100, 0 120, 13 140, ? 210, 4 290, "));
  const Texts results = {"20090512153000P.csv: 1 record", "20090513000001H.csv: 1 record",
                         "20091231235902C.txt: 2 words"};
  EXPECT_EQ(*j.window("Logger")["results"].lines, results);
  EXPECT_EQ(j.hint(), "3 downloaded, 0 already there, 0 not whole: work");
  EXPECT_EQ(lines_of(j.file("work/20090512153000P.csv")).size(), 3U);
  EXPECT_EQ(lines_of(j.file("work/20091231235902C.txt")).front(), "2009-12-31 23:59:58");
  EXPECT_EQ(j.files_ending_in(".part"), 0U);
  EXPECT_EQ(j.program().link.state.logger_active, 0);
  EXPECT_FALSE(j.window("Logger")["dl_f_name"].visible);
  EXPECT_EQ(j.world.dialogs.messages.size() + j.world.dialogs.told.size(), 0U);

  j.world.files.contents.erase("work/20090513000001H.csv");
  j.meter.faults().file.cut_after = 100;
  const double second_s = j.now_s();
  j.press("DL_All");
  EXPECT_EQ(std::ranges::count(j.received(second_s), '\x04'), 1);
  EXPECT_EQ(j.hint(), "0 downloaded, 2 already there, 1 not whole: work");
  EXPECT_EQ(j.files_ending_in("H.csv.part"), 1U);
  ASSERT_EQ(j.world.dialogs.told.size(), 1U);
  EXPECT_EQ(j.world.dialogs.told[0].text, "Data transfer incomplete");
}

TEST(Logger, NineFilesOfAllKindsAreFetchedInOneRun) {
  LoggerJourney j;
  j.meter.memory() = simulator::example_memory();  // seven: every wiring system, V1, I1, a screen
  j.stored(0, std::string(256, '\0'), {2026, 3, 3, 0, 0, 0});
  j.stored(1, std::string(20, '\0'), {2026, 3, 4, 0, 0, 0});
  const double start_s = j.now_s();
  j.press("DL_All");
  EXPECT_EQ(j.hint(), "9 downloaded, 0 already there, 0 not whole: work");
  EXPECT_EQ(j.files_ending_in("P.csv") * 100 + j.files_ending_in("H.csv") * 10 + j.files_ending_in("C.txt"),
            531U);
  EXPECT_EQ(std::ranges::count(j.received(start_s), '\x04'), 9);
  EXPECT_EQ(j.window("Logger")["results"].lines->at(6), "20260302162006C.txt: 1 screen");
}

TEST(Logger, ARunOverAllFilesStopsForGoodReasonsOnly) {
  LoggerJourney j;
  j.press("DL_All");
  EXPECT_EQ(j.world.dialogs.message_texts(), (Texts{"No Data Recorded", "No Data Recorded"}));
  j.store_three_files();
  j.meter.faults().file.wrong_index = 2;
  j.press("DL_All");
  ASSERT_EQ(j.world.dialogs.told.size(), 1U);
  EXPECT_EQ(j.world.dialogs.told[0].text, "File Index Command Error, Stop Down Load");
  EXPECT_EQ(j.files_ending_in("P.csv") + j.files_ending_in("C.txt"), 1U);
  EXPECT_EQ(j.window("Logger")["results"].lines->back(), "File Index Command Error, Stop Down Load");

  j.meter.faults() = {};
  j.meter.memory().select(0);
  j.world.user_does(45, [&j] { j.window("Logger").press("transfer_cancel"); });
  j.press("DL_All");
  EXPECT_TRUE(j.hint().starts_with("cancelled; ")) << j.hint();
  EXPECT_FALSE(j.world.timer2.enabled());

  j.world.files.write_failure = FileFailure::disk_full;
  j.world.files.contents.erase("work/20090512153000P.csv");
  j.press("DL_All");
  EXPECT_EQ(j.world.dialogs.told.back().text, "Please report ERROR CODE 61");
}

// Status 9 s, 1 s, first file 11 s, status 9 s, selection 9 s, status 9 s, 3 s: the second file is asked for
// 51 s after the click, and takes 0.15 s.
TEST(Logger, APulledCableAndAnEndedProgramLeaveTheEarlierFilesWhole) {
  for (const bool pulled : {true, false}) {
    LoggerJourney j;
    j.store_three_files();
    j.world.user_closes(51.1, [&] { pulled ? j.port.unplug() : j.window().closed(); });
    dispatch([&j] { j.press("DL_All"); });
    EXPECT_EQ(lines_of(j.file("work/20090512153000P.csv")).size(), 3U);
    EXPECT_EQ(j.files_ending_in("H.csv"), 0U);
    EXPECT_EQ(j.world.files.contents.count("work/20091231235902C.txt"), 0U);
    EXPECT_EQ(j.program().link.state.logger_active, 0);
    if (!pulled) continue;
    EXPECT_EQ(j.files_ending_in("H.csv.part"), 1U);
    ASSERT_EQ(j.world.dialogs.told.size(), 2U);
    EXPECT_EQ(j.world.dialogs.told[0].text, "Data transfer incomplete");
    EXPECT_EQ(j.world.dialogs.told[1].text, status_failed);
    EXPECT_TRUE(j.hint().starts_with("ended early; 1 downloaded")) << j.hint();
  }
}

// 100 groups take 1.04 s. The rest of them comes long after the silence that ended the transfer: in the look
// behind it, or in the quiet seconds of the status query.
TEST(Logger, AFileThatGoesOnAfterItsSilenceIsNotWhole) {
  for (const double pause_s : {6.5, 9.5}) {
    LoggerJourney j;
    std::string bytes;
    for (int i = 0; i < 100; ++i) bytes += simulator::word_bytes(std::array{2300, 5000, -690, 0, -1269});
    j.stored(1, bytes, {2024, 1, 2, 3, 4, 5});
    j.meter.faults().file.pause_after = 600;
    j.meter.faults().file.pause_s = pause_s;
    j.press("DL_All");
    ASSERT_EQ(j.world.dialogs.told.size(), 1U) << pause_s;
    EXPECT_EQ(j.world.dialogs.told[0].text, "Data transfer incomplete");
    EXPECT_EQ(j.files_ending_in("P.csv.part"), 1U);
    const auto& log = j.meter.log();
    const double asked_s = std::ranges::find(log, '\x04', &simulator::ReceivedByte::byte)->time_s;
    EXPECT_GT(log.back().time_s, asked_s + 1.04 + pause_s + 5) << "five silent seconds before \"?\"";
  }
}

// A box of the main window is open for eight of the fifteen seconds of a transfer; the adapter is pulled for
// two.
TEST(Logger, ABoxDoesNotCutATransferAndAPulledAdapterIsRemembered) {
  LoggerJourney j;
  std::string bytes;
  for (int i = 0; i < 1440; ++i) bytes += simulator::word_bytes(std::array{2300, 5000, -690, 0, -1269});
  j.stored(1, bytes, {2024, 1, 2, 3, 4, 5});
  j.world.dialogs.while_open = [&j](const Message& box) {
    if (box.title == "About") j.world.run_for(8);
  };
  j.world.user_does(14, [&j] { j.click("HelpAbout"); });
  j.world.dialogs.file_answers = {"whole.csv", "cut.csv"};
  j.press("Read_All");
  EXPECT_EQ(j.hint(), "1,440 records");
  j.world.user_closes(14, [&j] { j.port.unplug(); });
  j.world.user_closes(16, [&j] { j.port.plug_in(); });
  j.meter.faults().file.cut_after = 11000;
  j.press("Read_All");
  EXPECT_EQ(j.hint(), "bytes were lost: download again");
}

TEST(Logger, NothingIsAskedWhileTheMeterSendsAnEarlierFile) {
  LoggerJourney j;
  j.store_three_files();
  j.meter.faults().file.sends_on_s = 600;
  j.world.dialogs.file_answers = {"out.csv"};
  j.world.user_does(13.5, [&j] { j.window("Logger").press("transfer_cancel"); });
  j.world.user_does(20, [&j] { j.window("Logger").press("transfer_cancel"); });
  j.press("Read_All");
  const double given_up_s = j.now_s();
  EXPECT_TRUE(j.world.dialogs.messages.back().text.starts_with("The meter does not stop sending."));
  j.window().set_text("ct_value", "5");
  for (const char* button : {"set_ct", "get_hz"}) j.click(button);
  EXPECT_EQ(j.received(given_up_s), "");
  EXPECT_TRUE(j.world.dialogs.messages[1].text.starts_with("The meter is still sending a stored file."));
  EXPECT_EQ(j.world.dialogs.messages[2].text, status_failed);
  // The button waits, with a Cancel, until the ten minutes are over.
  j.world.user_does(100, [&j] { EXPECT_TRUE(j.window("Logger")["transfer_cancel"].visible); });
  j.press("Read_Status");
  EXPECT_EQ(j.received(given_up_s), "?");
  EXPECT_GT(j.meter.log().back().time_s - given_up_s, 600 - 20 + 5);
  EXPECT_FALSE(j.window("Logger")["transfer_cancel"].visible);
  EXPECT_EQ(j.logger("Harmo_or_Power_0"), "Power");
}

// A reply that has lost a digit, or its end, would give a file the start of another one.
TEST(Logger, ADamagedStatusReplyEndsEveryHandler) {
  const std::string whole =
      "00001 00000 00003 00001 00000 00001 00001 00002 00000 00001 00000 00015 00001 00000 00000 00001 00256 "
      "00001 00001 00030 00000 00000 00000 00001 00000 00000 00000 00000 00024 00001 00012 00003 00004 00005 "
      "00001 ";
  std::string lost_digit = whole;
  lost_digit.erase(30 * 6, 1);
  for (const std::string& reply : {lost_digit, whole.substr(0, 29 * 6)}) {
    LoggerJourney j;
    j.store_three_files();
    j.meter.faults().status_reply = reply;
    for (const char* button : {"Read_All", "DL_All", "Command1"}) j.press(button);
    EXPECT_EQ(j.world.dialogs.message_texts(), Texts(3, status_failed));
    EXPECT_EQ(std::ranges::count(j.received(j.opened_s), '\x04'), 0);
    j.meter.faults().status_reply = whole;
    j.press("Read_All");
    EXPECT_EQ(j.world.dialogs.file_questions.back().suggested_name, "20240112030400P.csv");
  }
}

TEST(Logger, CancelAndTypedStartsCountFromTheFirstQueryOn) {
  LoggerJourney j;
  j.store_three_files();
  j.world.user_does(3.5, [&j] { j.window("Logger").closed(); });  // the query yields for a second
  j.press("Command1");
  EXPECT_TRUE(j.world.dialogs.questions.empty());
  EXPECT_FALSE(j.window("Logger").visible());
  j.click("loggerPWR");
  j.press("Read_Status");
  j.window("Logger").set_text("Text1_1", "2001-02-30");
  j.window("Logger").changed("Text1_1");
  j.world.dialogs.messages.clear();
  j.world.dialogs.file_answers = {"x.csv", "temp_data.pwr"};
  j.press("Read_All");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"ERROR CODE 13 Date or Time is not correct"});
  EXPECT_TRUE(lines_of(j.file("x.csv")).back().starts_with("          ,          ,    230.0V,"));
  EXPECT_EQ(j.logger("Text1_1"), "2009-05-12");
  j.press("Read_All");
  EXPECT_TRUE(j.world.dialogs.messages.back().text.starts_with("This name is used for the transfer"));
}

TEST(Logger, FilesThatCannotBeWrittenStopBeforeTheMeterIsAsked) {
  LoggerJourney j;
  j.store_three_files();
  for (const std::string folder : {"work", "out"}) {
    j.world.files.folder_failures = {{folder, FileFailure::disk_full}};
    j.world.dialogs.file_answers = {"out.csv"};
    const double start_s = j.now_s();
    j.press("Read_All");
    EXPECT_EQ(j.log_since(start_s), "? 40, ");
    EXPECT_EQ(j.world.dialogs.messages.back().text, "Please report ERROR CODE 61");
    EXPECT_EQ(j.hint(), "0 records, then disk full");
    EXPECT_EQ(j.world.files.contents.count("out.csv"), 0U);
    EXPECT_FALSE(j.window("CHKSPEED").visible());
  }
}

TEST(Logger, ClearingTheMemoryAsksAndLooksAgain) {
  LoggerJourney j;
  j.store_three_files();
  double start_s = j.now_s();
  j.press("Command1");
  EXPECT_EQ(j.log_since(start_s), "? 40, ");
  const Message& question = j.world.dialogs.questions.back();
  EXPECT_EQ(question.text + "|" + question.title, "Are you sure ?|Clear Memory: 3 files");
  EXPECT_EQ(question.preset, Preset::no);
  j.world.dialogs.confirm_answers = {true};
  start_s = j.now_s();
  j.press("Command1");
  EXPECT_EQ(j.log_since(start_s), "? 40, 3 95, 3 115, ? 155, ");
  EXPECT_EQ(j.logger("stored_files") + ", " + j.hint(), "0 files, The memory is empty.");
}

// 45 s before midnight the query begins; the transfer of 30 s runs across it.
TEST(Logger, ATransferAcrossMidnightIsWhole) {
  LoggerJourney j(24 * 3600.0 - 45);
  std::string bytes;
  for (int i = 0; i < 2880; ++i) bytes += simulator::word_bytes(std::array{2300, 5000, -690, 0, -1269});
  j.stored(1, bytes, {2024, 1, 2, 3, 4, 5});
  j.world.dialogs.file_answers = {"out.csv"};
  const double start_s = j.now_s();
  j.press("Read_All");
  EXPECT_EQ(j.hint(), "2,880 records");
  EXPECT_NEAR(j.now_s() - start_s, 9 + 3 + 30.02 + 5 + 2 + 9, 1);
}

}  // namespace
}  // namespace halden
