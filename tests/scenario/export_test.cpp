// The window that exports numbers, in the whole program.
#include "formats/record_field.h"
#include "program_test_base.h"

namespace halden {
namespace {

const std::string head = "1P2W,Hz=60,MD=15,SEC=2,CT=1,VT=1\r\nnames\r\n";

struct ExportJourney : testing::Test, Journey {
  ExportJourney() { start(); }

  void press(const std::string& control) { click(control, "ExportNumbers"); }
  const std::string& result() const { return window("ExportNumbers")["export_result"].text; }
  bool enabled(const std::string& control) const { return window("ExportNumbers")[control].enabled; }
  std::string& file(const std::string& path) { return world.files.contents[path]; }

  std::string record(std::string_view power) const {
    std::string line = record_field("03-15-2024") + record_field("12:30:44");
    for (int column = 0; column < 15; ++column) line += record_field(column == 3 ? power : "7.7");
    return line + "\r\n";
  }
};

TEST_F(ExportJourney, TheResultIsAskedForAndReplacedOnlyAfterAQuestion) {
  file("d/a.csv") = head + record("2.410KW");
  world.dialogs.file_answers = {"d/a.csv", "d/n.txt"};
  click("export_numbers");
  EXPECT_TRUE(window("ExportNumbers").visible() && enabled("export"));
  press("export");
  EXPECT_EQ(result(), "The name of the result must end in .csv or .json");
  EXPECT_EQ(world.dialogs.file_questions.back().suggested_name, "a-numbers.csv");
  press("decimal_comma");
  EXPECT_TRUE(window("ExportNumbers")["separator_semicolon"].checked);
  EXPECT_FALSE(enabled("separator_comma")) << "it is the decimal mark";
  file("d/n.csv") = "earlier";
  world.dialogs.file_answers = {"d/n.csv", "d/n.csv", "d/a.csv"};
  world.dialogs.confirm_answers = {false, true};
  press("export");
  EXPECT_EQ(file("d/n.csv"), "earlier");
  press("export");
  EXPECT_EQ(world.dialogs.questions.back().text, "n.csv exists. Replace it?");
  EXPECT_EQ(result(), "1 row written to n.csv");
  EXPECT_NE(file("d/n.csv").find(";7,7;7,7;7,7;2410;7,7;"), std::string::npos) << file("d/n.csv");
  file("d/a.csv") += record("1.000KW") + "torn";
  press("export_again");
  EXPECT_EQ(result(), "3 rows written to n.csv, 1 of them without readings");
  press("export");
  EXPECT_EQ(result(), "a.csv is a data file itself: choose another name for the result");
  EXPECT_EQ(world.dialogs.questions.size(), 2u);
}

TEST_F(ExportJourney, WhatCannotBeExportedIsSaidAndTheFileBeforeStays) {
  file("d/a.csv") = head + record("2.410KW");
  file("d/b.csv") = "a,b\n1,2\n";
  program().numbers.open_file("d/b.csv");
  EXPECT_EQ(result(), "b.csv is no data file of this program");
  EXPECT_FALSE(enabled("export"));
  press("export_again");
  EXPECT_TRUE(world.dialogs.file_questions.empty());
  window("ExportNumbers").dropped({"d/a.csv"});
  program().numbers.open_file("d/missing.csv");
  EXPECT_EQ(world.dialogs.messages.back().text, "File not found");
  EXPECT_EQ(window("ExportNumbers")["export_file"].text, "a.csv");
  press("format_json");
  EXPECT_FALSE(enabled("decimal_comma"));
  world.files.write_failure = FileFailure::disk_full;
  world.dialogs.file_answers = {"d/n.json"};
  press("export");
  EXPECT_EQ(result(), "n.json was not written: disk full");
}

}  // namespace
}  // namespace halden
