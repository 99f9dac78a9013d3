// The hardcopy window beside a simulated meter, in virtual time.
#include <gtest/gtest.h>

#include "program_test_base.h"

namespace halden {
namespace {

struct HardcopyTest : testing::Test, Journey {
  HardcopyTest() {
    start_on_port(1);
    world.run_for(2);
  }

  void open() {
    click("show_plot_hardcopy");
    world.run_for(2);
  }
  void press(const std::string& control) { click(control, "HC_window"); }
  void choose(const std::string& path) {
    world.dialogs.file_answers = {path};
    press("open_file_and_plot");
  }
  const Control& shown(const std::string& control) const { return window("HC_window")[control]; }
  const std::string& hint() const { return shown("status_hint").text; }
  std::string dots(std::size_t row) const { return shown("picture").lines->at(row).substr(0, 18); }
  bool polls() const { return world.timer1.enabled() && world.timer2.enabled(); }
};

// 129 are the outer dots of a byte, 257 is skipped.
TEST_F(HardcopyTest, EachPictureOfAFileIsShownInTurn) {
  open();
  EXPECT_EQ(hint(), "No file is open. Choose one with File.");
  world.files.contents["d/c.txt"] = "2009-05-12 15:30:00\r\n00129\r\n2009-05-13 8:00:00\r\n257 3\r\n";
  choose("d/c.txt");
  const FileQuestion& question = world.dialogs.file_questions.at(0);
  EXPECT_EQ(question.filters[0].caption + "|" + question.filters[1].pattern, "txt Files(*.txt)|*.*");
  EXPECT_EQ(shown("HC_date_label").text + "|" + shown("Text1").text, "2009-05-12 15:30:00|c.txt");
  EXPECT_EQ(dots(0), "#      #          ");
  press("next_picture");
  EXPECT_EQ(shown("HC_date_label").text + "|" + dots(0), "2009-05-13 8:00:00|##                ");
  EXPECT_EQ(hint(), "Picture 2 of 2. 3839 of 3840 bytes are missing; they are left white.");
  press("open_file_and_plot");
  EXPECT_EQ(hint().substr(0, 15), "Picture 2 of 2.") << "a cancelled dialog changes nothing";
  press("next_picture");
  EXPECT_EQ(shown("HC_date_label").text, "2009-05-12 15:30:00");
  world.files.contents["d/c.txt"] = "later\r\n2\r\n";
  press("HC_command");
  EXPECT_EQ(shown("HC_date_label").text + "|" + dots(0), "later| #                ");
  EXPECT_FALSE(shown("next_picture").visible);
}

TEST_F(HardcopyTest, AFileThatCannotBeOpenedLeavesAnEmptySheet) {
  open();
  press("HC_command");
  EXPECT_EQ(world.dialogs.message_texts(), std::vector<std::string>{}) << "no file was chosen yet";
  click("sel_language_1");
  EXPECT_EQ(hint(), "尚未開啟檔案，請按 File 選擇。");
  click("sel_language_0");
  world.files.contents["d/c.txt"] = "date\r\n255";
  choose("d/c.txt");
  choose("d/missing.txt");
  EXPECT_EQ(world.dialogs.message_texts(), std::vector<std::string>{"File not found"});
  EXPECT_EQ(hint(), "Not opened: d/missing.txt");
  EXPECT_EQ(shown("HC_date_label").text, "");
  EXPECT_EQ(shown("picture").lines, nullptr);
  EXPECT_FALSE(window("CHKSPEED").visible());
}

TEST_F(HardcopyTest, AGrowingFileIsReadAgainAndItsPicturesAreHandedOn) {
  open();
  press("picture_copy");
  EXPECT_EQ(hint(), "There is nothing to copy or save yet.");
  std::string& file = world.files.contents["d/c.txt"];
  file = "2009-05-12 15:30:00\r\n1\r\n2009-05-13 8:00:00\r\n2\r\n";
  choose("d/c.txt");
  EXPECT_EQ(shown("Text1").tooltip, "d/c.txt");
  press("next_picture");
  file += "4\r\n2009-05-14 8:00:00\r\n8\r\n";
  press("read_again");
  EXPECT_EQ(hint(), "Picture 2 of 3. 3838 of 3840 bytes are missing; they are left white.");
  press("picture_copy");
  EXPECT_EQ(world.pictures.copied_dots.title, "2009-05-13 8:00:00");
  EXPECT_EQ(world.pictures.copied_dots.rows[0].substr(0, 12), " #        # ");
  world.dialogs.file_answers = {"d/c-2.png"};
  press("picture_save");
  EXPECT_EQ(world.dialogs.file_questions.back().suggested_name, "c-2");
  EXPECT_EQ(hint(), "The picture was saved as d/c-2.png.");
}

TEST_F(HardcopyTest, ButtonAndMenuPrintTheWindowInLandscape) {
  for (const char* control : {"Print_HC_command", "MenuPrinter"}) {
    press(control);
    EXPECT_EQ(world.printer.documents.back()[0].orientation, Orientation::landscape);
    EXPECT_EQ(world.printer.documents.back()[0].windows, std::vector<std::string>{"HC_window"});
  }
  EXPECT_EQ(hint(), "Print sent to LaserJet & Co.");
}

TEST_F(HardcopyTest, PollingPausesUntilTheWindowIsClosed) {
  ASSERT_TRUE(polls());
  open();
  EXPECT_FALSE(polls());
  click("get_hz");  // an exchange, which resumes polling at its end
  world.run_for(10);
  EXPECT_FALSE(polls());
  EXPECT_TRUE(shown("polling_note").visible);
  click("loggerPWR");
  window("Logger").closed();  // it resumes polling, too
  world.run_for(12);
  EXPECT_FALSE(polls());
  window("HC_window").closed();
  EXPECT_TRUE(polls());

  click("loggerPWR");
  open();
  window("HC_window").closed();
  world.run_for(2);
  EXPECT_FALSE(polls()) << "the datalogger still needs the line";
}

TEST_F(HardcopyTest, ARecordingMissesNothing) {
  open();
  world.dialogs.file_answers = {"d/a.csv"};
  click("FileName");
  click("auto_record");
  EXPECT_TRUE(polls()) << "a recording that starts while the window is open";
  EXPECT_FALSE(shown("polling_note").visible);
  window("HC_window").closed();
  open();
  choose("d/missing.txt");
  EXPECT_TRUE(polls());
  EXPECT_TRUE(window("CHKSPEED").visible()) << "the notice of the recording";
  world.run_for(10);
  EXPECT_GE(lines_of(world.files.contents["d/a.csv"]).size(), 6u);
}

}  // namespace
}  // namespace halden
