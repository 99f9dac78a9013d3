#include "filetools/printing/text_printing.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/virtual/virtual_desktop.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

// The page is 16838 x 11906, a byte 120 wide, a line 240 high: text is at most 16238 wide and begins at 600
// to 11306, which are 45 lines.
class TextPrintingTest : public testing::Test {
 protected:
  PrintedText print(const std::string& content) {
    files.contents["day.csv"] = content;
    return print_file(printer, files, "day.csv", [this](std::size_t page) { return page <= pages_wanted; });
  }

  static std::string short_lines(int count) {
    std::string lines;
    while (count-- > 0) lines += "V1,V2\r\n";
    return lines;
  }

  // How many bytes the lines of the only page of the last document have.
  std::vector<std::size_t> lengths() {
    std::vector<std::size_t> lengths;
    for (const PrintedLine& line : printer.documents.back().at(0).lines) lengths.push_back(line.text.size());
    return lengths;
  }

  VirtualPrinter printer;
  VirtualFiles files;
  std::size_t pages_wanted = 1000;
};

TEST_F(TextPrintingTest, APageFullAndOneLineMore) {
  EXPECT_EQ(print(short_lines(45)).pages, 1u);
  EXPECT_EQ(print(short_lines(46)).pages, 2u);
  ASSERT_EQ(printer.documents.size(), 2u);
  const auto& page = printer.documents[0].at(0);
  EXPECT_EQ(page.orientation, Orientation::landscape);
  EXPECT_EQ(printer.font.family, "Courier New");
  EXPECT_EQ(page.lines.front(), (PrintedLine{600, 600, "V1,V2"}));
  EXPECT_EQ(page.lines.back(), (PrintedLine{600, 11160, "V1,V2"}));
  EXPECT_EQ(printer.documents[1].at(1).lines, (std::vector<PrintedLine>{{600, 600, "V1,V2"}}));
}

TEST_F(TextPrintingTest, OnlyLinesWiderThanThePageAreCut) {
  const std::pair<std::size_t, std::vector<std::size_t>> cases[] = {
      {0, {0}}, {135, {135}}, {136, {132, 4}}, {264, {132, 132}}, {270, {132, 132, 6}}};
  for (const auto& [length, pieces] : cases) {
    print(std::string(length, 'x') + "\n");
    EXPECT_EQ(lengths(), pieces) << length;
  }
  std::string chinese;
  for (int i = 0; i < 60; ++i) chinese += "電";
  print(chinese);  // 21600 wide, 60 * 16238 / 21600 - 3 is 42.1
  EXPECT_EQ(lengths(), (std::vector<std::size_t>{126, 54}));
  print(short_lines(44) + std::string(136, 'x'));
  EXPECT_EQ(printer.documents.back().at(1).lines, (std::vector<PrintedLine>{{600, 600, "xxxx"}}));

  EXPECT_EQ(piece_length(10, 200, 110), 2u) << "2.5";
  EXPECT_EQ(piece_length(10, 200, 130), 4u) << "3.5";
  EXPECT_EQ(piece_length(10, 200, 20), 1u) << "-2";
}

TEST_F(TextPrintingTest, WhatWasCancelledOrFailedIsNotSentAndNoLineIsNoPage) {
  pages_wanted = 2;
  const PrintedText cancelled = print(short_lines(1000));
  EXPECT_TRUE(cancelled.cancelled);
  EXPECT_EQ(cancelled.pages, 3u);
  const auto go_on = [](std::size_t) { return true; };
  EXPECT_EQ(print_file(printer, files, "gone.csv", go_on).file, FileFailure::not_found);
  printer.failure = PrintFailure::no_printer;
  const PrintedText failed = print(short_lines(1000));
  EXPECT_EQ(failed.printer, PrintFailure::no_printer);
  EXPECT_EQ(failed.pages, 1u) << "it ends at once";
  printer.failure = PrintFailure::none;
  EXPECT_EQ(print_lines(printer, {}, go_on).pages, 0u);
  EXPECT_TRUE(printer.documents.empty());
  const std::vector<std::string> lines = {"230.1V", "5.000A"};
  EXPECT_EQ(print_lines(printer, lines, go_on).pages, 1u);
  EXPECT_EQ(printer.documents.at(0).at(0).lines,
            (std::vector<PrintedLine>{{600, 600, "230.1V"}, {600, 840, "5.000A"}}));
}

}  // namespace
}  // namespace halden
