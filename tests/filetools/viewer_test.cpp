#include <gtest/gtest.h>

#include "filetools/shown_text.h"
#include "filetools/viewer/viewed_file.h"
#include "filetools/viewer/viewer_texts.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

using namespace std::string_literals;

TEST(ShownText, WhatIsNoTextLeavesTheColumnsInPlace) {
  EXPECT_EQ(shown_text("a\tb\0c\x7F|電 \xC2\xB0"s), "a b c |電 °");
  EXPECT_EQ(shown_text("5\xB0|\xE9\x9B"), "5\uFFFD|\uFFFD\uFFFD");
  EXPECT_EQ(shown_text("\xC0\xAF|\xED\xA0\x80"), "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD");
}

class ViewedFileTest : public testing::Test {
 protected:
  void add_numbers(int first, int last) {
    for (int number = first; number <= last; ++number) content += std::to_string(number) + "\n";
  }

  std::string line(std::size_t index, std::size_t characters = 5) {
    return (*file.list())[index].substr(0, characters);
  }

  std::string_view message(ViewRefusal refusal) {
    return refusal_texts(refusal, file, Language::english).message;
  }

  VirtualFiles files;
  std::string& content = files.contents["day.csv"];
  ViewedFile file{files};
};

TEST_F(ViewedFileTest, BlocksHaveTheirHeadingAndTheirButtons) {
  add_numbers(1, 32767);
  EXPECT_EQ(file.open("day.csv"), ViewRefusal::none);
  EXPECT_FALSE(file.offers_more_blocks() || file.offers_previous_block());
  add_numbers(32768, 70000);
  EXPECT_EQ(file.read_again(), ViewRefusal::none);
  for (int block = 2; block <= 4; ++block) EXPECT_EQ(file.more_blocks(), ViewRefusal::none);
  EXPECT_EQ(file.heading(), "65535");
  EXPECT_EQ(file.record_number(4465), 70000u);
  EXPECT_FALSE(file.offers_more_blocks()) << "the fourth block was not there";
  EXPECT_EQ(file.previous_block(), ViewRefusal::none);
  EXPECT_TRUE(file.offers_more_blocks() && file.offers_previous_block());
  EXPECT_EQ(file.heading(), "32768");
  EXPECT_EQ(file.blocks_read(), 3u);
}

TEST_F(ViewedFileTest, EveryLineEndAndNone) {
  const std::pair<std::string, Lines> cases[] = {
      {"", {}}, {"\xEF\xBB\xBFV1\r\nI1\nP", {"V1", "I1", "P"}}, {"V1\r\n\r\n", {"V1", ""}}, {"V1\r", {"V1"}}};
  for (const auto& [bytes, lines] : cases) {
    content = bytes;
    EXPECT_EQ(file.open("day.csv"), ViewRefusal::none);
    EXPECT_EQ(*file.list(), lines);
    EXPECT_LT(file.column_maximum(), 1);
  }
}

TEST_F(ViewedFileTest, LinesOf253CharactersNeedLongLines) {
  content = std::string(252, 'x') + "\r\n";
  EXPECT_EQ(file.open("day.csv"), ViewRefusal::none);
  EXPECT_EQ(file.column_maximum(), 210);
  content = std::string(253, 'x') + "\r\n";
  EXPECT_EQ(message(file.open("day.csv")), "Can't not display Record length > 255 bytes");
  EXPECT_FALSE(file.is_shown() || file.offers_more_blocks() || !file.list()->empty());
  EXPECT_EQ(file.path(), "day.csv") << "to be printed";
  file.set_long_lines(LongLines::allowed);
  EXPECT_EQ(file.read_again(), ViewRefusal::none);
  EXPECT_EQ(file.column_maximum(), 211);
}

// A file is read in pieces of 262,144 bytes, a block ends before 16,777,216.
TEST_F(ViewedFileTest, LinesAcrossPiecesAndFilesWithoutLineEnds) {
  for (int number = 10000; number < 12000; ++number)  // 222 bytes a line: the first piece ends in line 1180
    content += std::to_string(number) + std::string(215, '.') + "\r\n";
  EXPECT_EQ(file.open("day.csv"), ViewRefusal::none);
  EXPECT_EQ(line(1180, 300), "11180" + std::string(215, '.'));
  file.set_long_lines(LongLines::allowed);
  content = std::string(262144 * 64 + 3, 'x');
  EXPECT_EQ(file.open("day.csv"), ViewRefusal::none);
  EXPECT_EQ(file.more_blocks(), ViewRefusal::none);
  EXPECT_EQ(file.record_number(0), 65u);
  EXPECT_EQ(line(0), "xxx");
}

TEST_F(ViewedFileTest, SidewaysOnlyTheVisibleLinesMoveUntilTheBlockIsReadAgain) {
  for (const char letter : "abcd"s) content += letter + "2345"s + std::string(50, '0') + "\n";
  content += "電力 8\n";
  file.open("day.csv");
  EXPECT_EQ(file.shift(3, {1, 2}), FileFailure::none);
  EXPECT_EQ(line(0) + line(1) + line(3), "a234534500d2345");
  content.replace(content.find("d2"), 4, "dxyz");
  EXPECT_EQ(file.align({3, 16}), FileFailure::none);
  EXPECT_EQ(line(3) + line(4), "yz500 8") << "from the file";
  EXPECT_EQ(file.read_again(), ViewRefusal::none);
  EXPECT_EQ(line(0) + file.heading().substr(0, 5), "34500a2345");
  content = "short\n";
  EXPECT_EQ(file.read_again(), ViewRefusal::none);
  EXPECT_EQ(line(0), "short") << "there is no scroll bar to go back with";
}

TEST_F(ViewedFileTest, AFileThatShrinksOrVanishesLeavesWhatIsShown) {
  add_numbers(1, 40000);
  file.open("day.csv");
  content.resize(100);
  EXPECT_EQ(file.more_blocks(), ViewRefusal::shrunk);
  files.contents.clear();
  EXPECT_EQ(file.align({5, 16}), FileFailure::not_found);
  EXPECT_EQ(message(file.more_blocks()), "File not found");
  files.read_failures["folder"] = FileFailure::not_a_file;
  EXPECT_EQ(message(file.open("folder")), "Bad file name or number");
  EXPECT_EQ(line(32766), "32767");
}

TEST_F(ViewedFileTest, TheBlockBehindTheLastOneIsRefused) {
  content = std::string(32767 * 200, '\n');
  file.open("day.csv");
  for (int block = 2; block <= 199; ++block) ASSERT_EQ(file.more_blocks(), ViewRefusal::none);
  EXPECT_EQ(message(file.more_blocks()), "Can not display more data");
}

}  // namespace
}  // namespace halden
