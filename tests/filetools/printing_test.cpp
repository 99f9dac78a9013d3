#include "filetools/printing/text_printing.h"

#include <gtest/gtest.h>

#include "filetools/printing/printing_texts.h"
#include "platform/virtual/virtual_desktop.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

using Lengths = std::vector<std::size_t>;

std::string repeated(int count, std::string_view text) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

// The page is 16838 x 11906, a byte 120 wide, a line 240 high: text is at most 16238 wide and begins at 600
// to 11306, which are 45 lines.
class TextPrintingTest : public testing::Test {
 protected:
  PrintedText print(const std::string& content) {
    files.contents["day.csv"] = content;
    return print_file(printer, files, "day.csv", [this](std::size_t page) { return page <= pages_wanted; });
  }

  std::string told(const PrintedText& printed) {
    return printed_text(printed, printer.destination(), Language::english);
  }

  // In bytes, of the lines of the last document's first page.
  Lengths lengths() {
    Lengths lengths;
    for (const PrintedLine& line : printer.documents.back().at(0).lines) lengths.push_back(line.text.size());
    return lengths;
  }

  VirtualPrinter printer;
  VirtualFiles files;
  std::size_t pages_wanted = 1000;
};

TEST_F(TextPrintingTest, APageFullAndOneLineMore) {
  EXPECT_EQ(print(repeated(45, "V1\n")).pages, 1u);
  EXPECT_EQ(print(repeated(46, "V1\n")).pages, 2u);
  const PrintedPage& page = printer.documents.at(0).at(0);
  EXPECT_EQ(page.orientation, Orientation::landscape);
  EXPECT_EQ(printer.font.family, "Courier New");
  EXPECT_EQ(page.lines.front(), (PrintedLine{600, 600, "V1"}));
  EXPECT_EQ(page.lines.back(), (PrintedLine{600, 11160, "V1"}));
  EXPECT_EQ(printer.documents.at(1).at(1).lines, (std::vector<PrintedLine>{{600, 600, "V1"}}));
}

TEST_F(TextPrintingTest, OnlyLinesWiderThanThePageAreCut) {
  const std::pair<int, Lengths> cases[] = {
      {135, {135}}, {136, {132, 4}}, {264, {132, 132}}, {270, {132, 132, 6}}};
  for (const auto& [length, pieces] : cases) {
    print(repeated(length, "x"));
    EXPECT_EQ(lengths(), pieces);
  }
  print(repeated(60, "電"));  // of 3 bytes: 42.1 characters a piece
  EXPECT_EQ(lengths(), (Lengths{126, 54}));
  print(repeated(44, "V1\n") + repeated(136, "x"));
  EXPECT_EQ(printer.documents.back().at(1).lines, (std::vector<PrintedLine>{{600, 600, "xxxx"}}));
  EXPECT_EQ(piece_length(10, 200, 110), 2u) << "2.5";
  EXPECT_EQ(piece_length(10, 200, 130), 4u) << "3.5";
  EXPECT_EQ(piece_length(10, 200, 20), 1u) << "-2";
}

TEST_F(TextPrintingTest, WhatWasCancelledOrFailedIsNotSentAndNoLineIsNoPage) {
  const auto go_on = [](std::size_t) { return true; };
  pages_wanted = 2;
  EXPECT_EQ(told(print(repeated(1000, "V1\n"))), "Cancelled at page 3. The document was not printed.");
  EXPECT_EQ(told(print_file(printer, files, "gone.csv", go_on)), "File not found");
  printer.failure = PrintFailure::no_printer;
  EXPECT_EQ(print(repeated(1000, "V1\n")).pages, 1u) << "it ends at once";
  printer.failure = PrintFailure::none;
  EXPECT_EQ(told(print_lines(printer, {}, go_on)), "There are no lines to print.");
  EXPECT_TRUE(printer.documents.empty());
  const PrintedText two_lines = print_lines(printer, std::vector<std::string>{"230.1V", "5.00A"}, go_on);
  EXPECT_EQ(told(two_lines), "1 page. Print sent to LaserJet & Co.");
  EXPECT_EQ(lengths(), (Lengths{6, 5}));
}

}  // namespace
}  // namespace halden
