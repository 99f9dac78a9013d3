// The window that exports a data file as plain numbers, in virtual time.
#include <gtest/gtest.h>

#include "program_test_base.h"

namespace halden {
namespace {

struct ExportJourney : testing::Test, Journey {
  ExportJourney() {
    start();
    world.dialogs.messages.clear();
    std::string record = "03-15-2024,  12:30:44,   2.5000V,   1.000KA,";
    for (int field = 4; field < 17; ++field) record += "        OL,";
    world.files.contents["d/a.csv"] = "1P2W,CT=1,VT=1\r\nDATE\r\n" + record + "\r\nlost\r\n";
  }

  void choose(const std::string& path) {
    world.dialogs.file_answers = {path};
    click("export_numbers");
  }
  void export_to(const std::string& path) {
    world.dialogs.file_answers = {path};
    click("export", "ExportNumbers");
  }
  const std::string& result() const { return window("ExportNumbers")["export_result"].text; }
};

TEST_F(ExportJourney, AFileIsChosenThenTheNameOfItsNumbers) {
  choose("d/a.csv");
  EXPECT_TRUE(window("ExportNumbers").visible());
  click("decimal_comma", "ExportNumbers");
  EXPECT_TRUE(window("ExportNumbers")["separator_semicolon"].checked) << "a comma cannot be both";
  export_to("d/n.csv");
  EXPECT_EQ(world.dialogs.file_questions.back().suggested_name, "a-numbers.csv");
  const std::string& rows = world.files.contents["d/n.csv"];
  EXPECT_NE(rows.find("\n1;1;03-15-2024;12:30:44;2024-03-15T12:30:44;2,5000;1000;"), std::string::npos)
      << rows;
  EXPECT_NE(rows.find("\n2;1;"), std::string::npos) << "the lost line is a row";
  EXPECT_EQ(result().substr(0, 6), "2 rows");
  click("sel_language_1");
  window("ExportNumbers").closed();
  EXPECT_FALSE(window("ExportNumbers").visible());
}

TEST_F(ExportJourney, WhatCannotBeExportedIsToldAndNothingIsReplaced) {
  const std::string recording = world.files.contents["d/a.csv"];
  world.files.contents["d/b.txt"] = "no data\r\n";
  choose("d/none.csv");
  EXPECT_EQ(world.dialogs.message_texts(), std::vector<std::string>{"File not found"});
  choose("d/b.txt");
  EXPECT_FALSE(window("ExportNumbers")["export"].enabled);
  window("ExportNumbers").dropped({"d/a.csv"});
  EXPECT_EQ(window("ExportNumbers")["export_file"].text, "a.csv");
  export_to("d/n.xls");
  EXPECT_EQ(result(), "The name of the result must end in .csv or .json");
  export_to("d/a.csv");
  EXPECT_EQ(world.files.contents["d/a.csv"], recording);
  world.files.contents["d/n.csv"] = "of somebody else";
  export_to("d/n.csv");
  EXPECT_EQ(world.dialogs.questions.back().text, "n.csv exists. Replace it?");
  EXPECT_EQ(world.files.contents["d/n.csv"], "of somebody else") << "the answer was no";
  world.files.write_failure = FileFailure::disk_full;
  export_to("d/m.csv");
  EXPECT_FALSE(world.files.exists("d/m.csv"));
  EXPECT_NE(result().find("disk full"), std::string::npos) << result();
}

}  // namespace
}  // namespace halden
