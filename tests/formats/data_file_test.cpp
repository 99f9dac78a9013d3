#include "formats/data_file.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

struct DataFileTest : testing::Test {
  DataFileTest() { file.begin("d/a.csv", "head\r\n"); }

  const std::string& stored() { return files.contents["d/a.csv"]; }

  VirtualFiles files;
  DataFile file{files};
};

TEST_F(DataFileTest, HeaderLinesWaitAsWellAndAreNotDoubled) {
  files.write_failure = FileFailure::disk_full;
  file.begin("d/b.csv", "other head\r\n");
  file.append_line("1");
  EXPECT_EQ(file.lines_waiting(), 1u) << "header lines are not counted";
  files.write_failure = FileFailure::none;
  EXPECT_TRUE(file.write_waiting());
  EXPECT_TRUE(file.write_waiting());
  EXPECT_EQ(files.contents["d/b.csv"], "other head\r\n1\r\n");
}

TEST_F(DataFileTest, ATornLastLineIsHealedAndAVanishedFileBeginsAnew) {
  struct Tail {
    const char *found, *left;
  };
  for (const Tail& tail :
       {Tail{"head\r\n1\r\n2,3", "head\r\n1\r\n2,3\r\n"}, Tail{"head\r\n1\r", "head\r\n1\r\n"},
        Tail{"head\n1\n", "head\n1\n"}, Tail{"", "head\r\n"}}) {
    files.contents["d/a.csv"] = tail.found;
    file.append_line("new");
    EXPECT_EQ(stored(), std::string(tail.left) + "new\r\n");
  }
  files.contents.clear();
  file.append_line("new");
  EXPECT_EQ(stored(), "head\r\nnew\r\n");
  files.contents["d/c.csv"] = "torn";
  file.begin("d/c.csv", "head\r\n");
  EXPECT_EQ(files.contents["d/c.csv"], "torn\r\nhead\r\n");
}

TEST_F(DataFileTest, WhatWaitsCanGoElsewhereWithItsHeader) {
  file.append_line("1");
  files.folder_failures["d/"] = FileFailure::disk_full;
  file.append_line("2");
  files.folder_failures["full/"] = FileFailure::disk_full;
  EXPECT_EQ(file.write_waiting_to("full/x.csv"), FileFailure::disk_full);
  EXPECT_EQ(file.lines_waiting(), 1u);
  files.contents["e/x.csv"] = "older";
  EXPECT_EQ(file.write_waiting_to("e/x.csv"), FileFailure::none);
  EXPECT_EQ(files.contents["e/x.csv"], "older\r\nhead\r\n2\r\n");
  EXPECT_EQ(file.lines_waiting(), 0u);
  EXPECT_EQ(file.lines_written(), 2u);
  EXPECT_EQ(file.failure(), FileFailure::none);
}

}  // namespace
}  // namespace halden
