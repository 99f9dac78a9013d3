// Recording as the user sees it: menus, questions, and what stands in the file.
#include "companion_test_base.h"
#include "readings/patterns.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

const std::string file_3p4w_settings = "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1\r\n";

Texts lines_of(const std::string& bytes) {
  Texts lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = bytes.find("\r\n", begin);
    EXPECT_NE(end, std::string::npos) << "a line without its end";
    lines.push_back(bytes.substr(begin, end - begin));
    begin = end == std::string::npos ? bytes.size() : end + 2;
  }
  return lines;
}

struct RecordingTest : testing::Test {
  RecordingTest() {
    MeterSettings& settings = journey.meter.settings();
    settings.frequency_code = 2;
    settings.md_period = 15;
    settings.sample_seconds = 2;
    settings.ct_ratio = 1;
    settings.pt_ratio = 1;
  }

  void start() {
    journey.start_on_port(1);
    journey.world.run_for(1);
  }

  void click(const std::string& control) { journey.companion->click(control); }

  void create(const std::string& path) {
    journey.world.dialogs.file_answers.push_back(path);
    click("FileName");
  }

  void record_automatically() {
    start();
    create("d/a.csv");
    click("auto_record");
  }

  Texts records(const std::string& path = "d/a.csv") {
    Texts lines = lines_of(journey.world.files.contents[path]);
    lines.erase(lines.begin(), lines.begin() + std::min<std::ptrdiff_t>(2, std::ssize(lines)));
    return lines;
  }

  // The TIME field of a record, without its blanks.
  static std::string time_of(const std::string& record) { return record.substr(13, 8); }

  std::string menu_state() const {
    std::string state;
    for (const char* entry : {"FileName", "FileStart", "FileStop"})
      state += journey.window()[entry].enabled ? '1' : '0';
    return state + (journey.window()["record_button"].visible ? "R" : "-") +
           (journey.companion->screen().chkspeed.visible() ? "N" : "-");
  }

  const std::string& status() {
    journey.companion->refresh_status_line();
    return journey.text("status_recording");
  }

  VirtualDialogs& dialogs() { return journey.world.dialogs; }

  Journey journey;
};

TEST_F(RecordingTest, TheMenusFollowTheFourStates) {
  start();
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(status(), "not recording");
  for (const char* entry : {"auto_record", "manual_record", "FileStop"}) click(entry);
  EXPECT_EQ(menu_state(), "100--") << "nothing can start without a file";
  create("d/a.csv");
  EXPECT_EQ(menu_state(), "110--");
  EXPECT_EQ(journey.text("FileName"), "&Create Data File = d/a.csv");
  EXPECT_EQ(status(), "data file ready");
  click("auto_record");
  EXPECT_EQ(menu_state(), "001-N");
  journey.world.run_for(5);
  EXPECT_EQ(menu_state(), "001-N") << "the notice stays";
  EXPECT_EQ(status(), "recording: 3 lines");
  click("FileStop");
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(journey.text("FileName"), "&Create Data File");
  create("d/b.csv");
  click("manual_record");
  EXPECT_EQ(menu_state(), "001RN");
  EXPECT_EQ(status(), "recording by hand: 0 lines");
  const Window& notice = journey.companion->screen().chkspeed;
  EXPECT_EQ(notice.caption(), "");
  EXPECT_EQ(notice["Text1"].text, "Recording (" + journey.text("Label1_3") + ")");
  EXPECT_FALSE(notice["Text1"].enabled);
  click("FileStop");
  EXPECT_TRUE(notice["Text1"].enabled);
  EXPECT_EQ(menu_state(), "100--");
}

TEST_F(RecordingTest, TheDialogFollowsTheViewAndNoChoiceMeansNoFile) {
  start();
  create("d/a.csv");
  click("FileName");  // cancelled
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(journey.text("FileName"), "&Create Data File");
  journey.program().link.display_mode = waveform_view;
  journey.program().link.language = 1;
  click("FileName");
  EXPECT_EQ(journey.text("FileName"), "建立檔案名稱");
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
  start();
  journey.world.files.contents["d/a.csv"] = "old\r\n";
  create("d/a.csv");
  EXPECT_EQ(dialogs().questions.back().text, "File exists, append data to it");
  EXPECT_EQ(dialogs().questions.back().icon, Icon::question);
  EXPECT_EQ(menu_state(), "100--");
  EXPECT_EQ(journey.text("FileName"), "&Create Data File");
  EXPECT_EQ(journey.world.files.contents["d/a.csv"], "old\r\n");
  dialogs().confirm_answers = {true, true};
  create("d/a.csv");
  const Texts lines = lines_of(journey.world.files.contents["d/a.csv"]);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[1] + "\r\n", file_3p4w_settings);
  EXPECT_EQ(lines[2].substr(0, 33), "      DATE,      TIME,       V12,");
  // A file that is there but cannot be read exists.
  journey.world.files.read_failures["d/locked.csv"] = FileFailure::forbidden;
  create("d/locked.csv");
  EXPECT_EQ(dialogs().questions.size(), 3u);
}

TEST_F(RecordingTest, TheHeaderFollowsModeAndView) {
  start();
  Program& program = journey.program();
  program.status.meter_mode = harmonics_mode;
  program.status.harmonic_channel = 3;
  program.link.display_mode = harmonics_view;
  create("d/h.csv");
  EXPECT_EQ(lines_of(journey.world.files.contents["d/h.csv"])[0],
            "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=I2,SYS=3P4W,,NO.=100 ,OPTION=%");
  EXPECT_TRUE(dialogs().messages.empty());
  program.link.display_mode = waveform_view;
  for (const char* path : {"d/w.dat", "d/w2.dat"}) create(path);
  EXPECT_EQ(dialogs().message_texts(),
            Texts{"The minimum sampling time for recording waveform is 4 seconds"});
  EXPECT_EQ(journey.text("Label1_1"), "4 SEC");
  const Texts waveform = lines_of(journey.world.files.contents["d/w.dat"]);
  ASSERT_EQ(waveform.size(), 2u);
  EXPECT_EQ(waveform[0].substr(0, 8), "WAVE Hz=");
  EXPECT_EQ(waveform[1].substr(0, 14), "DATE, TIME 0 1");
  // An unknown wiring has no columns of its own.
  program.status.meter_mode = power_mode;
  program.link.display_mode = power_view;
  program.status.wiring_system = 9;
  create("d/q.csv");
  EXPECT_EQ(journey.world.files.contents["d/q.csv"], "????,Hz=60,MD=15,SEC=2,CT=1,VT=1\r\n\r\n");
}

// 12:00:00 is when the program starts; after 11 s of start-up and 1 s of readings recording begins at
// 12:00:12 and something, so the first whole second after that is the first sampling instant.
TEST_F(RecordingTest, AutomaticallyOneRecordPerSamplingInstantWithTheTextsOfTheScreen) {
  journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
  record_automatically();
  journey.world.run_for(1.9);
  ASSERT_EQ(records().size(), 1u);
  const std::string record = records()[0];
  EXPECT_EQ(record.size(), 418u);
  EXPECT_EQ(record.substr(0, 22), "11-22-2026,  " + journey.text("Label1_3") + ",");
  EXPECT_EQ(record.substr(55, 11), "    230.1V,");
  EXPECT_EQ(record.substr(88, 11), "    12.34A,");
  EXPECT_EQ(record.substr(407), "    ------,");
  journey.world.run_for(20);
  const Texts later = records();
  ASSERT_EQ(later.size(), 11u);
  for (std::size_t k = 0; k < later.size(); ++k)
    EXPECT_EQ(time_of(later[k]), "12:00:" + format_pattern(static_cast<double>(13 + 2 * k), "00"));
}

TEST_F(RecordingTest, ByHandOneRecordPerPressHoweverOftenItIsPressed) {
  start();
  create("d/a.csv");
  click("record_button");  // hidden
  click("manual_record");
  journey.world.run_for(7);
  EXPECT_EQ(records(), Texts{});
  for (int press = 0; press < 3; ++press) click("record_button");
  journey.world.run_for(7);
  EXPECT_EQ(records().size(), 1u);
  click("record_button");
  journey.world.run_for(1);
  EXPECT_EQ(records().size(), 2u);
  click("FileStop");
  create("d/b.csv");
  click("auto_record");
  journey.world.run_for(3.9);
  EXPECT_EQ(records("d/b.csv").size(), 2u);
}

TEST_F(RecordingTest, WhileTheMeterIsSilentTheLinesSaySo) {
  record_automatically();
  journey.world.run_for(4);
  const std::size_t before = records().size();
  journey.meter.faults().silence = true;
  journey.world.run_for(16);
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
  journey.meter.faults().silence = false;
  journey.world.run_for(4);
  EXPECT_EQ(records().back().size(), 418u);
  click("FileStop");
  journey.meter.faults().silence = true;
  const std::size_t ended = records().size();
  journey.world.run_for(10);
  EXPECT_EQ(records().size(), ended);
}

struct TypedTime {
  const char *answer, *shown;
  bool told;
};

TEST_F(RecordingTest, TheSamplingTimeIsBroughtIntoItsRange) {
  start();
  const std::vector<TypedTime> cases = {
      {"10", "10 SEC", false},   {"", "10 SEC", false},         {"1", "2 SEC", true},
      {"2", "2 SEC", false},     {"2,5", "2 SEC", false},       {"2.9", "2 SEC", false},
      {"7,9,9", "7 SEC", false}, {"32767", "32767 SEC", false}, {"40000", "32767 SEC", false},
      {"abc", "2 SEC", true},    {"-5", "2 SEC", true},         {"1,99", "2 SEC", true}};
  std::size_t told = 0;
  for (const TypedTime& typed : cases) {
    dialogs().input_answers.push_back(typed.answer);
    click("SampleRate");
    EXPECT_EQ(journey.text("Label1_1"), typed.shown) << typed.answer;
    told += typed.told ? 1 : 0;
    EXPECT_EQ(dialogs().messages.size(), told) << typed.answer;
  }
  EXPECT_EQ(dialogs().messages.back().text, "Sampling time must be > 2 seconds");
  // The next whole second is a sampling instant, then one every five.
  dialogs().input_answers.push_back("5");
  click("Label1_1");  // a double click on the label
  EXPECT_EQ(journey.text("Label1_1"), "5 SEC");
  create("d/a.csv");
  click("auto_record");
  journey.world.run_for(11.9);
  const Texts lines = records();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(time_of(lines[0]).back(), time_of(lines[2]).back()) << "10 s apart";
}

TEST_F(RecordingTest, AFullDiskDelaysLinesButLosesNone) {
  record_automatically();
  journey.world.run_for(3.9);
  ASSERT_EQ(records().size(), 2u);
  journey.world.files.write_failure = FileFailure::disk_full;
  journey.world.run_for(6);
  EXPECT_EQ(status(), "recording: 2 lines, 3 waiting (disk full)");
  EXPECT_EQ(records().size(), 2u);
  journey.world.files.write_failure = FileFailure::none;
  journey.world.run_for(2);
  EXPECT_EQ(status(), "recording: 6 lines");
  const Texts lines = records();
  ASSERT_EQ(lines.size(), 6u);
  for (std::size_t k = 0; k < lines.size(); ++k)
    EXPECT_EQ(time_of(lines[k]), "12:00:" + format_pattern(static_cast<double>(13 + 2 * k), "00"));
}

TEST_F(RecordingTest, LinesThatStillWaitAtTheEndGoWhereTheUserWants) {
  record_automatically();
  journey.world.run_for(1.9);
  journey.world.files.folder_failures["d/"] = FileFailure::not_found;
  journey.world.run_for(4);
  dialogs().confirm_answers = {true, true, true};
  dialogs().file_answers = {"d/again.csv", "e/rest.csv"};  // the first one fails as well
  click("FileStop");
  EXPECT_EQ(
      dialogs().questions.back().text,
      "2 recorded lines could not be written (folder gone) to\nd/a.csv\n\nSave what is missing to another "
      "file?");
  const Texts rest = lines_of(journey.world.files.contents["e/rest.csv"]);
  ASSERT_EQ(rest.size(), 4u);
  EXPECT_EQ(rest[0] + "\r\n", file_3p4w_settings);
  EXPECT_EQ(time_of(rest[2]), "12:00:15");
  EXPECT_EQ(time_of(rest[3]), "12:00:17");
  EXPECT_EQ(status(), "not recording");
  EXPECT_EQ(menu_state(), "100--");
}

TEST_F(RecordingTest, ExitAsksAndADeclinedQuestionKeepsTheLinesAllTheSame) {
  record_automatically();
  journey.world.run_for(1.9);
  journey.world.files.folder_failures["d/"] = FileFailure::disk_full;
  journey.world.run_for(2);
  bool ended_when_asked = true;
  dialogs().confirm_answers = {false};
  click("quit");
  ended_when_asked = dialogs().questions.empty();
  EXPECT_FALSE(ended_when_asked);
  EXPECT_TRUE(journey.world.ended());
  EXPECT_EQ(records("work/halden-rescued-power.csv").size(), 1u);
}

// Neither the user nor a rescue file takes them: they stay until they are given up knowingly.
TEST_F(RecordingTest, LinesThatCanBeKeptNowhereAreAskedForAgain) {
  record_automatically();
  journey.world.run_for(1.9);
  journey.world.files.write_failure = FileFailure::disk_full;
  journey.world.run_for(2);
  dialogs().confirm_answers = {false, true, false, false};
  click("FileStop");
  ASSERT_EQ(dialogs().questions.size(), 4u);
  EXPECT_EQ(
      dialogs().questions[1].text,
      "1 recorded line could not be kept in the working folder or the temporary folder either, and will "
      "be lost.\n\nTry again?");
  EXPECT_EQ(status(), "not recording, 1 waiting (disk full)");
  dialogs().confirm_answers = {false, true, false};
  journey.world.dialogs.while_open = [this](const Message& question) {
    if (question.text.ends_with("Try again?")) journey.world.files.write_failure = FileFailure::none;
  };
  click("quit");
  EXPECT_TRUE(journey.world.ended());
  EXPECT_EQ(dialogs().questions.size(), 6u) << "the second try wrote it";
  EXPECT_EQ(records().size(), 2u);
}

TEST_F(RecordingTest, AFileThatWasGivenUpIsNotWrittenAnyMore) {
  start();
  journey.world.files.write_failure = FileFailure::forbidden;
  create("d/a.csv");
  click("FileName");  // cancelled
  create("d/b.csv");
  click("auto_record");
  click("FileStop");
  journey.world.files.write_failure = FileFailure::none;
  click("quit");
  for (const char* path : {"d/a.csv", "d/b.csv"}) EXPECT_FALSE(journey.world.files.exists(path)) << path;
  EXPECT_TRUE(dialogs().questions.empty());
}

// Closing by the frame asks nothing; the next starts say where the lines lie as long as they lie there.
TEST_F(RecordingTest, ClosingByTheFrameRescuesWhatWaits) {
  for (const bool work_folder_fails : {false, true}) {
    Journey fresh;
    fresh.start_on_port(1);
    fresh.world.dialogs.file_answers = {"d/a.csv"};
    fresh.companion->click("FileName");
    fresh.companion->click("auto_record");
    fresh.world.run_for(1.9);
    fresh.world.files.folder_failures["d/"] = FileFailure::disk_full;
    if (work_folder_fails) fresh.world.files.folder_failures["work/"] = FileFailure::forbidden;
    fresh.world.run_for(4);
    dispatch([&] { fresh.companion->main_window_closed(); });
    EXPECT_TRUE(fresh.world.ended());
    EXPECT_TRUE(fresh.world.dialogs.questions.empty());
    const std::string path = std::string(work_folder_fails ? "temp" : "work") + "/halden-rescued-power.csv";
    EXPECT_EQ(lines_of(fresh.world.files.contents[path]).size(), 4u);
    fresh.world.shell.ended = false;
    fresh.start();
    ASSERT_EQ(fresh.world.dialogs.told.size(), 1u);
    EXPECT_EQ(fresh.world.dialogs.told[0].text,
              "Recorded lines that could not be written are kept in " + path);
    fresh.world.files.contents.erase(path);
    fresh.start();
    EXPECT_EQ(fresh.world.dialogs.told.size(), 1u);
  }
}

TEST_F(RecordingTest, MidnightChangesTheDateOfTheRecords) {
  Journey late(86400 - 20.0);
  late.start_on_port(1);
  late.world.dialogs.file_answers = {"d/a.csv"};
  late.companion->click("FileName");
  late.companion->click("auto_record");
  late.world.run_for(20);
  const Texts lines = lines_of(late.world.files.contents["d/a.csv"]);
  ASSERT_EQ(lines.size(), 12u);
  // Nothing is recorded before the first sampling instant, 2 s after polling began.
  EXPECT_EQ(lines[2].substr(0, 21), "11-22-2026,  23:59:53");
  EXPECT_EQ(lines[5].substr(0, 21), "11-22-2026,  23:59:59");
  EXPECT_EQ(lines[6].substr(0, 21), "11-23-2026,  00:00:01");
}

}  // namespace
}  // namespace halden
