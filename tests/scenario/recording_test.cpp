// Recording as the user sees it: menus, questions, and what stands in the file.
#include <algorithm>

#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

const std::string settings_line = "3P4W,Hz=50,MD=15,SEC=2,CT=1,VT=1";

// The seconds in the TIME fields of the records, "12 14 ".
std::string seconds_of(const Texts& records) {
  std::string seconds;
  for (const std::string& record : records) seconds += record.substr(19, 2) + " ";
  return seconds;
}

// The program starts at 12:00:00 and polls from 12:00:11 on; an automatic recording then has its first
// sampling instant at 12:00:12. The currents lead, so that no reading loses a minus sign.
struct Recorder : Journey {
  explicit Recorder(double time_of_day_s = 12 * 3600.0) : Journey(time_of_day_s) {
    fix_phase(1, {2301, 12340, 2781, 0, -116});
    fix_phase(2, {2298, 11870, 2655, 1200, 1068});
    fix_phase(3, {2306, 13020, 2902, -1200, -1348});
    start_on_port(1);
  }

  void create(const std::string& path) {
    world.dialogs.file_answers.push_back(path);
    click("FileName");
  }

  void record_automatically() {
    create("d/a.csv");
    click("auto_record");
  }

  Texts records(const std::string& path = "d/a.csv") {
    Texts lines = lines_of(world.files.contents[path]);
    lines.erase(lines.begin(), lines.begin() + std::min<std::ptrdiff_t>(2, std::ssize(lines)));
    return lines;
  }

  std::string menu_state() const {
    std::string state;
    for (const char* entry : {"FileName", "FileStart", "FileStop"})
      state += window()[entry].enabled ? '1' : '0';
    return state + (window()["record_button"].visible ? "R" : "-") +
           (window("CHKSPEED").visible() ? "N" : "-");
  }

  const std::string& status() {
    program().application.refresh_status_line();
    return text("status_recording");
  }

  VirtualDialogs& dialogs() { return world.dialogs; }
};

struct RecordingTest : testing::Test, Recorder {};

TEST_F(RecordingTest, TheMenusFollowTheFourStates) {
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(status(), "not recording");
  for (const char* entry : {"auto_record", "manual_record", "FileStop"}) click(entry);
  EXPECT_EQ(menu_state(), "100--") << "nothing can start without a file";
  create("d/a.csv");
  EXPECT_EQ(menu_state(), "110--");
  EXPECT_EQ(text("FileName"), "&Create Data File = d/a.csv");
  EXPECT_EQ(status(), "a.csv: ready");
  click("auto_record");
  world.run_for(2.9);
  EXPECT_EQ(menu_state(), "001-N");
  EXPECT_EQ(status(), "recording a.csv: 1 line");
  click("FileStop");
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(text("FileName"), "&Create Data File");
  create("d/b.csv");
  click("manual_record");
  EXPECT_EQ(menu_state(), "001RN");
  EXPECT_EQ(status(), "recording by hand b.csv: waiting for the first reading");
  const Window& notice = window("CHKSPEED");
  EXPECT_EQ(notice.caption(), "");
  EXPECT_EQ(notice["Text1"].text, "Recording (12:00:12)");
  EXPECT_FALSE(notice["Text1"].enabled);
  click("FileStop");
  EXPECT_TRUE(notice["Text1"].enabled);
  EXPECT_EQ(menu_state(), "100--");
}

TEST_F(RecordingTest, TheDialogFollowsTheViewAndNoChoiceMeansNoFile) {
  create("d/a.csv");
  click("FileName");  // cancelled
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(text("FileName"), "&Create Data File");
  program().link.state.display_mode = waveform_view;
  program().link.state.language = Language::chinese;
  click("FileName");
  EXPECT_EQ(text("FileName"), "建立檔案名稱");
  ASSERT_EQ(dialogs().file_questions.size(), 3u);
  const auto asked = [this](std::size_t k) {
    const FileQuestion& question = dialogs().file_questions[k];
    return question.filters[0].caption + "|" + question.filters[0].pattern + "|" +
           question.filters[1].caption + "|" + question.filters[1].pattern + "|" + question.default_extension;
  };
  EXPECT_EQ(asked(0), "csv Files(*.csv)|*.csv|All Files (*.*)|*.*|.csv");
  EXPECT_EQ(asked(2), "dat Files(*.dat)|*.dat|All Files (*.*)|*.*|.dat");
}

TEST_F(RecordingTest, AnExistingFileIsAppendedToOnlyWhenTheUserAgrees) {
  world.files.contents["d/a.csv"] = "old\r\n";
  create("d/a.csv");
  EXPECT_EQ(dialogs().questions.back().text, "File exists, append data to it");
  EXPECT_EQ(dialogs().questions.back().icon, Icon::question);
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(text("FileName"), "&Create Data File");
  EXPECT_EQ(world.files.contents["d/a.csv"], "old\r\n");
  dialogs().confirm_answers = {true, true};
  create("d/a.csv");
  const Texts lines = lines_of(world.files.contents["d/a.csv"]);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[1], settings_line);
  EXPECT_EQ(lines[2].substr(0, 33), "      DATE,      TIME,       V12,");
  // A file that is there but cannot be read exists.
  world.files.read_failures["d/locked.csv"] = FileFailure::forbidden;
  create("d/locked.csv");
  EXPECT_EQ(dialogs().questions.size(), 3u);
}

TEST_F(RecordingTest, TheHeaderFollowsModeAndView) {
  program().link.status.meter_mode = harmonics_mode;
  program().link.status.harmonic_channel = 3;
  program().link.state.display_mode = harmonics_view;
  create("d/h.csv");
  EXPECT_EQ(lines_of(world.files.contents["d/h.csv"])[0],
            "HARMO,Hz=50,MD=15,SEC=2,CT=1,VT=1,INPUT=I2,SYS=3P4W,,NO.=100 ,OPTION=%");
  EXPECT_TRUE(dialogs().messages.empty());
  program().link.state.display_mode = waveform_view;
  for (const char* path : {"d/w.dat", "d/w2.dat"}) create(path);
  EXPECT_EQ(dialogs().message_texts(),
            Texts{"The minimum sampling time for recording waveform is 4 seconds"});
  EXPECT_EQ(text("Label1_1"), "4 SEC");
  // An unknown wiring has no columns of its own.
  program().link.status.meter_mode = power_mode;
  program().link.state.display_mode = power_view;
  program().link.status.wiring_system = Wiring{9};
  create("d/q.csv");
  EXPECT_EQ(world.files.contents["d/q.csv"], "????,Hz=50,MD=15,SEC=2,CT=1,VT=1\r\n\r\n");
}

TEST_F(RecordingTest, OneRecordPerSamplingInstantWithTheTextsOfTheScreenAndAFullDiskLosesNone) {
  fix_phase(1, {2301, 12340, 2781, 0, 116});
  record_automatically();
  world.run_for(2.9);
  ASSERT_EQ(records().size(), 1u);
  const std::string record = records()[0];
  EXPECT_EQ(record.size(), 418u);
  EXPECT_EQ(record.substr(0, 22), "11-22-2026,  12:00:12,");
  EXPECT_EQ(record.substr(55, 11), "    230.1V,");
  EXPECT_EQ(record.substr(88, 11), "    12.34A,");
  EXPECT_EQ(record.substr(407), "    ------,");
  world.run_for(2);
  world.files.write_failure = FileFailure::disk_full;
  world.run_for(6);
  EXPECT_EQ(status(), "recording a.csv: 2 lines, 3 waiting (disk full)");
  EXPECT_EQ(seconds_of(records()), "12 14 ");
  world.files.write_failure = FileFailure::none;
  world.run_for(2);
  EXPECT_EQ(status(), "recording a.csv: 6 lines");
  EXPECT_EQ(seconds_of(records()), "12 14 16 18 20 22 ");
}

// The format's own spacing, the uneven places included.
const std::string demand_names = "     W(AD),    VA(AD),     W(MD),    VA(MD)";
const std::string system_names =
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,     WH_SYS,  VAH_SYS,  VARH_SYS,   PFH_SYS,";
const std::string system_panels =
    " W_sys VA_sys VAR_sys PF_sys WH_sys VAH_sys VARH_sys PFH_sys W_AD VA_AD W_MD VA_MD";

// Column by column, the panel of every name; a record is right when each stands where its name does.
TEST_F(RecordingTest, EveryPanelStandsUnderItsName) {
  const struct {
    Wiring wiring;
    std::string names;
    std::string panels;  // without DATE and TIME
  } cases[] = {
      {Wiring::w1p2w, "      DATE,      TIME,        V1,        I1,    Phase1," + system_names + demand_names,
       "V1 I1 Phase1" + system_panels},
      {Wiring::w1p3w,
       "      DATE,      TIME,        V1,        V2,        I1,        I2,         P1,       P2, '"
       "        S1,        S2,        Q1,        Q2,       PF1,       PF2,    Phase1,    Phase2," +
           system_names + demand_names,
       "V1 V2 I1 I2 W1 W2 VA1 VA2 VAR1 VAR2 PF1 PF2 Phase1 Phase2" + system_panels},
      {Wiring::w3p3w,
       "      DATE,      TIME,       V12,       V23,       V31,        I1,         I2,       I3," +
           system_names + demand_names,
       "V12 V23 V31 I1 I2 I3" + system_panels},
      {Wiring::w3p4w,
       "      DATE,      TIME,       V12,       V23,       V31,        V1,        V2,        V3,"
       "        I1,        I2,        I3,        P1,        P2,        P3,"
       "        S1,        S2,        S3,        Q1,        Q2,        Q3,"
       "       PF1,       PF2,       PF3,    Phase1,    Phase2,    Phase3,"
       "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,    WH_SYS,   VAH_SYS,  VARH_SYS,   PFH_SYS," +
           demand_names,
       "V12 V23 V31 V1 V2 V3 I1 I2 I3 W1 W2 W3 VA1 VA2 VA3 VAR1 VAR2 VAR3 PF1 PF2 PF3 Phase1 Phase2 Phase3" +
           system_panels}};
  for (const auto& c : cases) {
    program().link.status.wiring_system = c.wiring;
    EXPECT_EQ(lines_of(program().live.power.header())[1], c.names);
    window().set_text("Label1_3", "12:30:44");
    std::string expected = "11-22-2026,  12:30:44,";
    std::istringstream panels(c.panels);
    int mark = 100;
    for (std::string panel; panels >> panel; ++mark) {
      window().set_text(panel + "_value", std::to_string(mark) + ".5KVAR");
      expected += " " + std::to_string(mark) + ".5KVAR,";
    }
    const std::string record = program().live.power.record().text;
    EXPECT_EQ(record, expected);
    EXPECT_EQ(record.size(), 11 * (1 + static_cast<std::size_t>(std::ranges::count(c.names, ','))));
  }
  program().link.status.wiring_system = Wiring{4};
  EXPECT_EQ(program().live.power.record().text, "") << "an unknown system has no columns";
}

TEST_F(RecordingTest, ByHandOneRecordPerPressHoweverOftenItIsPressed) {
  create("d/a.csv");
  click("record_button");  // hidden
  click("manual_record");
  world.run_for(7);
  EXPECT_EQ(records(), Texts{});
  for (int press = 0; press < 3; ++press) click("record_button");
  world.run_for(7);
  EXPECT_EQ(records().size(), 1u);
  click("record_button");
  world.run_for(1);
  EXPECT_EQ(records().size(), 2u);
  click("record_button");
  click("FileStop");  // before a reading has followed the press
  create("d/b.csv");
  click("manual_record");
  world.run_for(3);
  EXPECT_EQ(records("d/b.csv"), Texts{}) << "a press belongs to the recording it was made in";
  click("FileStop");
  create("d/c.csv");
  click("auto_record");
  world.run_for(3.9);
  EXPECT_EQ(records("d/c.csv").size(), 2u);
}

TEST_F(RecordingTest, WhileTheMeterIsSilentTheLinesSaySo) {
  record_automatically();
  world.run_for(5);
  const std::size_t before = records().size();
  meter.faults().silence = true;
  world.run_for(16);
  const Texts lines = records();
  // The link counts as lost from the 17th to the 21st missed tick, three times in 16 s; each second of that
  // sees one sampling instant, or two.
  ASSERT_GE(lines.size(), before + 3);
  ASSERT_LE(lines.size(), before + 6);
  Texts times;
  for (std::size_t k = before; k < lines.size(); ++k) {
    EXPECT_EQ(lines[k].size(), 143u);
    EXPECT_EQ(lines[k].substr(19, 18), ", NO COM, DATA LOS");
    times.push_back(lines[k].substr(11, 8));
  }
  EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
  EXPECT_EQ(std::adjacent_find(times.begin(), times.end()), times.end()) << "none is doubled";
  meter.faults().silence = false;
  world.run_for(4);
  EXPECT_EQ(records().back().size(), 418u);
  click("FileStop");
  meter.faults().silence = true;
  const std::size_t ended = records().size();
  world.run_for(10);
  EXPECT_EQ(records().size(), ended);
}

// A VARH of -0.001KVARH has eleven characters.
TEST_F(RecordingTest, TheStatusSaysThatAMinusSignWasCutAndThatTheColumnsChanged) {
  fix_worked_load();
  record_automatically();
  world.run_for(10);
  EXPECT_EQ(text("VARH_sys_value").substr(0, 3), "-0.");
  EXPECT_EQ(records().back().substr(32 * 11, 11), text("VARH_sys_value").substr(1) + ",");
  EXPECT_TRUE(status().ends_with(" lines, a minus sign was cut off")) << status();
  meter.settings().wiring = simulator::Wiring::w3p3w;
  click("get_hz");
  world.run_for(10);
  meter.settings().wiring = simulator::Wiring::w3p4w;
  click("get_hz");
  EXPECT_TRUE(status().ends_with(" lines, the columns have changed, a minus sign was cut off")) << status();
  click("FileStop");
  create("d/b.csv");
  click("auto_record");
  EXPECT_EQ(status(), "recording b.csv: waiting for the first reading");
}

// Sampling instants at 23:59:54, 23:59:59 and 00:00:04; the readings of the second one come after midnight.
TEST(RecordingAtMidnight, ARecordHasTheDateOfItsSamplingInstant) {
  Recorder late(86400 - 18.0);
  late.dialogs().input_answers.push_back("5");
  late.click("SampleRate");
  late.record_automatically();
  late.world.run_for(5.5);
  late.meter.faults().silence = true;
  late.world.run_for(2);
  late.meter.faults().silence = false;
  late.world.run_for(8);
  std::string dates;
  for (const std::string& record : late.records()) dates += record.substr(0, 5) + record.substr(10, 11) + " ";
  EXPECT_EQ(dates, "11-22,  23:59:54 11-22,  23:59:59 11-23,  00:00:04 ");
}

TEST_F(RecordingTest, TheSamplingTimeIsBroughtIntoItsRange) {
  const std::tuple<const char*, const char*, std::size_t> rows[] = {
      {"10", "10 SEC", 0},       {"", "10 SEC", 0},         {"1", "2 SEC", 1},   {"2", "2 SEC", 0},
      {"2,5", "2 SEC", 0},       {"7,9,9", "7 SEC", 0},     {"abc", "2 SEC", 1}, {"-5", "2 SEC", 1},
      {"32767", "32767 SEC", 0}, {"40000", "32767 SEC", 0}, {"1,99", "2 SEC", 1}};
  for (const auto& [typed, shown, told] : rows) {
    dialogs().messages.clear();
    dialogs().input_answers.push_back(typed);
    click("SampleRate");
    EXPECT_EQ(text("Label1_1"), shown) << typed;
    EXPECT_EQ(dialogs().messages.size(), told) << typed;
  }
  EXPECT_EQ(dialogs().messages.back().text, "Sampling time must be > 2 seconds");
  dialogs().input_answers.push_back("5");
  click("Label1_1");  // a double click on the label
  EXPECT_EQ(text("Label1_1"), "5 SEC");
  record_automatically();
  world.run_for(12.9);
  EXPECT_EQ(seconds_of(records()), "12 17 22 ") << "the next whole second, then one every five";
}

TEST_F(RecordingTest, LinesThatStillWaitAtTheEndGoWhereTheUserWants) {
  record_automatically();
  world.run_for(2.9);
  world.files.folder_failures["d/"] = FileFailure::not_found;
  world.run_for(4);
  dialogs().confirm_answers = {true, true, true};
  dialogs().file_answers = {"d/again.csv", "e/rest.csv"};  // the first one fails as well
  click("FileStop");
  EXPECT_EQ(
      dialogs().questions.back().text,
      "2 recorded lines could not be written (folder gone) to\nd/a.csv\n\nSave what is missing to another "
      "file?");
  EXPECT_EQ(world.files.contents["e/rest.csv"].substr(0, settings_line.size()), settings_line);
  EXPECT_EQ(seconds_of(records("e/rest.csv")), "14 16 ");
  EXPECT_EQ(status(), "not recording, a.csv: 1 line");
  EXPECT_EQ(menu_state(), "100--");
}

// Neither the user nor a rescue file takes them: the user may try again, or gives them up.
TEST_F(RecordingTest, LinesThatCanBeKeptNowhereAreTriedAgainOrCalledLost) {
  const auto record_until_the_disk_is_full = [this](const char* path) {
    create(path);
    click("auto_record");
    world.run_for(2.9);
    world.files.write_failure = FileFailure::disk_full;
    world.run_for(2);
  };
  record_until_the_disk_is_full("d/a.csv");
  dialogs().confirm_answers = {false, true};
  world.dialogs.while_open = [this](const Message& question) {
    if (question.text.ends_with("Try again?")) world.files.write_failure = FileFailure::none;
  };
  click("FileStop");
  ASSERT_EQ(dialogs().questions.size(), 2u);
  EXPECT_EQ(
      dialogs().questions[1].text,
      "1 recorded line could not be kept in the working folder or the temporary folder either, and will "
      "be lost.\n\nTry again?");
  EXPECT_EQ(records().size(), 2u) << "the second try wrote it";
  world.dialogs.while_open = {};
  record_until_the_disk_is_full("d/b.csv");
  dialogs().confirm_answers = {false, true, false, false};
  click("FileStop");
  EXPECT_EQ(text("status_hint"), "1 recorded line lost, because no file could be written (disk full)");
  EXPECT_EQ(status(), "not recording, b.csv: 2 lines, 1 unwritten and lost (disk full)");
  world.files.write_failure = FileFailure::none;
  click("quit");
  EXPECT_TRUE(world.ended());
  EXPECT_EQ(dialogs().questions.size(), 6u) << "nothing is asked about what is lost";
  EXPECT_EQ(seconds_of(records("d/b.csv")), "16 18 ");
}

// Closing by the frame asks nothing, and a declined question keeps the lines all the same; the next starts
// say where they lie as long as they lie there.
TEST(ClosingWhileRecording, RescuesWhatWaits) {
  for (const auto& [folder, leave] :
       {std::pair(std::string("work"), "frame"), {"temp", "frame"}, {"work", "quit"}}) {
    Recorder fresh;
    fresh.record_automatically();
    fresh.world.run_for(2.9);
    fresh.world.files.folder_failures["d/"] = FileFailure::disk_full;
    if (folder == "temp") fresh.world.files.folder_failures["work/"] = FileFailure::forbidden;
    fresh.world.run_for(4);
    fresh.dialogs().confirm_answers = {false};
    const bool quits = leave == std::string("quit");
    dispatch([&, quits = quits] { quits ? fresh.click("quit") : fresh.window().closed(); });
    EXPECT_TRUE(fresh.world.ended());
    EXPECT_EQ(fresh.dialogs().questions.size(), quits ? 1u : 0u);
    const std::string path = folder + "/halden-rescued-power.csv";
    EXPECT_EQ(seconds_of(fresh.records(path)), "14 16 ");
    fresh.world.shell.ended = false;
    fresh.start();
    ASSERT_EQ(fresh.dialogs().told.size(), 1u);
    EXPECT_EQ(fresh.dialogs().told[0].text, "Recorded lines that could not be written are kept in " + path);
    fresh.world.files.contents.erase(path);
    fresh.start();
    EXPECT_EQ(fresh.dialogs().told.size(), 1u);
  }
}

}  // namespace
}  // namespace halden
