// The viewer and its print dialog beside a simulated meter, in virtual time.
#include <gtest/gtest.h>

#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

struct ViewerTest : testing::Test, Journey {
  ViewerTest() {
    start_on_port(1);
    world.run_for(2);
    world.dialogs.messages.clear();
    click("ViewFile");
    world.run_for(2);
  }

  void press(const std::string& control) { click(control, "VIEW"); }
  const Control& shown(const std::string& control) const { return window("VIEW")[control]; }
  const Control& dialog(const std::string& control) const { return window("PrintFile")[control]; }
  const std::string& hint() const { return shown("status_hint").text; }
  std::string line(std::size_t index) const { return shown("List1").lines->at(index).substr(0, 6); }
  bool polls() const { return world.timer1.enabled() && world.timer2.enabled(); }

  void open(const std::string& content) {
    world.files.contents["d/a.csv"] = content;
    world.dialogs.file_answers = {"d/a.csv"};
    press("OpenViewFile");
  }

  // Numbered lines of 60 characters.
  static std::string numbered(int first, int last) {
    std::string content;
    for (int number = first; number <= last; ++number)
      content += std::to_string(100000 + number) + std::string(54, '.') + "\r\n";
    return content;
  }

  void see(std::size_t top, std::size_t room, std::vector<LineRange> selected = {}) {
    window("VIEW").set_list("List1", {top, room, std::move(selected)});
    window("VIEW").changed("List1");
  }
  void shift(int column) {
    window("VIEW").set_value("HScroll1", column);
    window("VIEW").changed("HScroll1");
  }
  std::string figures() const {
    std::string all;
    for (const char* name :
         {"selected_record", "current_block", "chars_per_record", "records_read", "blocks_read"})
      all += shown(std::string(name) + "_value").text + "|";
    return all;
  }
  Texts printed() const {
    Texts texts;
    for (const PrintedPage& page : world.printer.documents.back())
      for (const PrintedLine& piece : page.lines) texts.push_back(piece.text);
    return texts;
  }
};

TEST_F(ViewerTest, BlocksAreShownWithTheirFigures) {
  EXPECT_EQ(hint(), "No file is open. Choose one with File > Open.");
  EXPECT_FALSE(shown("PrintList").enabled);
  open(numbered(1, 40000));
  EXPECT_EQ(world.dialogs.file_questions.at(0).filters.at(0).caption, "All Files (*.*)");
  EXPECT_EQ(figures(), "|1|60|32767|1|");
  EXPECT_FALSE(shown("Command1_0").visible || shown("Panel3D3").visible || !shown("Command1_1").visible);
  see(20, 30, {{4, 4}, {10, 12}, {20, 20}});
  EXPECT_EQ(figures(), "5, 11-13, ...|1|60|32767|1|");
  press("Command1_1");
  EXPECT_EQ(shown("Label1").text.substr(0, 6) + figures(), "132768|2|60|7233|2|");
  EXPECT_EQ(shown("List1").list.top, 0U);
  see(0, 30, {{0, 1}});
  EXPECT_EQ(shown("selected_record_value").text, "32768-32769");
  EXPECT_FALSE(shown("Command1_1").visible);
  world.files.contents["d/a.csv"] += numbered(40001, 40001);
  press("read_again");
  EXPECT_EQ(figures(), "32768-32769|2|60|7234|2|") << "what is selected stays";
  press("Command1_0");
  EXPECT_EQ(figures(), "|1|60|32767|2|");
}

TEST_F(ViewerTest, OnlyVisibleLinesAreShiftedUntilAClickOrAPrint) {
  open(numbered(1, 100));
  EXPECT_EQ(std::to_string(shown("HScroll1").minimum) + "-" + std::to_string(shown("HScroll1").maximum),
            "1-18");
  see(0, 3);
  shift(6);
  EXPECT_EQ(line(0) + " " + line(2) + " " + line(3), "1..... 3..... 100004");
  see(50, 3, {{2, 3}});
  EXPECT_EQ(line(50), "100051");
  press("List1");
  EXPECT_EQ(line(50) + " " + line(3), "1..... 100004");
  world.files.contents["d/a.csv"] = "";
  shift(7);
  EXPECT_EQ(line(50), "......") << "the same lines are visible: the file is not read again";
  world.files.contents.erase("d/a.csv");
  see(60, 3);
  shift(9);
  EXPECT_EQ(hint(), "File not found");
  EXPECT_EQ(shown("HScroll1").value, 7);
  open(numbered(1, 100));
  see(0, 3, {{2, 3}});
  shift(6);
  press("PrintList");
  EXPECT_EQ(line(3), "4.....") << "what is printed begins at one column";
  open("short\r\n");
  EXPECT_FALSE(shown("HScroll1").visible);
}

TEST_F(ViewerTest, WhatCannotBeShownIsSaid) {
  open(numbered(1, 2) + std::string(253, 'x'));
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"Can't not display Record length > 255 bytes"});
  EXPECT_EQ(hint(), "Lines with more than 252 characters: switch on \"Long Lines\" to show them.");
  EXPECT_EQ(figures() + shown("Label1").text, "|||||");
  EXPECT_TRUE(shown("PrintList").enabled);
  press("long_lines");
  EXPECT_TRUE(shown("long_lines").checked);
  EXPECT_EQ(figures() + hint(), "|1|253|3|1|");
  world.files.read_failures["folder"] = FileFailure::not_a_file;
  for (const char* path : {"gone.csv", "folder"}) program().viewer.open_file(path);
  EXPECT_EQ(world.dialogs.messages[1].text, "File not found");
  EXPECT_EQ(world.dialogs.messages[2].text, "Bad file name or number");
  EXPECT_EQ(figures(), "|1|253|3|1|") << "the file before stays";
}

TEST_F(ViewerTest, PollingPausesUntilTheLastWindowIsClosedAndNeverForARecording) {
  EXPECT_TRUE(!polls() && shown("polling_note").visible);
  click("show_plot_hardcopy");
  press("ExitFile");
  world.run_for(2);
  EXPECT_FALSE(polls()) << "the hardcopy window is still open";
  window("HC_window").closed();
  world.run_for(2);
  EXPECT_TRUE(polls());
  click("ViewFile");
  world.dialogs.file_answers = {"d/live.csv"};
  click("FileName");
  click("auto_record");
  world.run_for(2);
  EXPECT_TRUE(polls() && !shown("polling_note").visible);
  window("VIEW").closed();
  click("ViewFile");
  EXPECT_TRUE(polls());
}

struct PrintDialogTest : ViewerTest {
  void press_print(const std::string& control) { click(control, "PrintFile"); }

  void choose_printer(int index) {
    window("PrintFile").set_value("printer_choice", index);
    window("PrintFile").changed("printer_choice");
  }
};

TEST_F(PrintDialogTest, TheWholeFileOrTheSelectedLinesGoToTheChosenPrinter) {
  world.printer.names = {"Laser", "Plotter"};
  open("first\r\nsecond\r\nthird\r\n");
  see(0, 3, {{1, 2}});
  press("PrintList");
  EXPECT_EQ(*dialog("printer_choice").lines, (Texts{"Laser", "Plotter", "PDF file..."}));
  press_print("Command3D1_1");
  EXPECT_TRUE(world.printer.documents.empty() && !window("PrintFile").visible());
  press("PrintList");
  press_print("Command3D1_0");
  EXPECT_EQ(printed(), (Texts{"first", "second", "third"}));
  EXPECT_EQ(hint(), "1 page. Print sent to LaserJet & Co.");
  press("PrintList");
  press_print("Option3D1_2");
  choose_printer(1);
  world.printer.failure = PrintFailure::failed;
  press_print("Command3D1_0");
  EXPECT_EQ(dialog("status_hint").text, "The document could not be printed.");
  EXPECT_TRUE(window("PrintFile").visible()) << "to choose another one";
  world.printer.failure = PrintFailure::none;
  press_print("Command3D1_0");
  EXPECT_EQ(printed(), (Texts{"second", "third"}));
  see(0, 3);
  press("PrintList");
  EXPECT_TRUE(dialog("Option3D1_2").checked && dialog("printer_choice").value == 1) << "as chosen before";
  press_print("Command3D1_0");
  EXPECT_EQ(hint(), "There are no lines to print.");
  press("PrintList");
  press_print("Option3D1_0");
  world.files.contents.erase("d/a.csv");
  press_print("Command3D1_0");
  EXPECT_EQ(world.dialogs.message_texts(), Texts{"File not found"});
}

TEST_F(PrintDialogTest, WithoutAPrinterThePrintIsAPdfFile) {
  open("first\r\n" + std::string(253, 'x'));
  press("PrintList");
  press_print("Command3D1_0");
  EXPECT_EQ(world.dialogs.file_questions.back().suggested_name, "a.pdf");
  EXPECT_TRUE(window("PrintFile").visible() && world.printer.documents.empty()) << "no file was chosen";
  world.files.contents["d/a.pdf"] = "older";
  for (const bool replaced : {false, true}) {
    world.dialogs.file_answers = {"d/a.pdf"};
    world.dialogs.confirm_answers = {replaced};
    press_print("Command3D1_0");
    EXPECT_EQ(world.printer.documents.size(), replaced ? 1U : 0U);
  }
  EXPECT_EQ(world.dialogs.questions.back().text, "d/a.pdf exists already. Replace it?");
  EXPECT_EQ(printed().size(), 3U) << "a line that the viewer refused is printed in pieces";
}

// A page has 45 lines.
TEST_F(PrintDialogTest, ALongDocumentTellsItsPagesAndCanBeCancelled) {
  world.printer.names = {"Laser"};
  open(numbered(1, 450));
  press("PrintList");
  Texts pages;
  world.user_does(0, [&] {
    pages.push_back(dialog("print_pages").text);
    click("Command3D1");
    EXPECT_EQ(text("status_hint"), "Another document is being printed.");
    press_print("print_cancel");
  });
  press_print("Command3D1_0");
  EXPECT_EQ(pages, Texts{"Printing page 2"});
  EXPECT_EQ(hint(), "Cancelled at page 2. The document was not printed.");
  EXPECT_TRUE(world.printer.documents.empty() && dialog("Command3D1_0").enabled);
}

}  // namespace
}  // namespace halden
