#include "filetools/hardcopy/hardcopy_file.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

HardcopyFile read(const std::string& content) {
  VirtualFiles files;
  files.contents["screen.txt"] = content;
  return read_hardcopies(files, "screen.txt");
}

std::string words(int count, const std::string& word) {
  std::string lines;
  while (count-- > 0) lines += word + "\r\n";
  return lines;
}

// Both numbers are in the first row, the 31st begins the second one.
TEST(Hardcopy, TheLowestBitIsTheLeftDot) {
  const HardcopyFile file = read("\r\n1,128 " + words(28, "00000") + "00003\r\n");
  const DotPicture drawn = dot_picture(file.pictures.at(0));
  EXPECT_EQ(drawn.rows.at(0), "#" + std::string(14, ' ') + "#" + std::string(224, ' '));
  EXPECT_EQ(drawn.rows.at(1), "##" + std::string(238, ' '));
  EXPECT_EQ(drawn.rows.size(), 128u);
  EXPECT_EQ(hardcopy_hint(file, 0, Language::english),
            "3809 of 3840 bytes are missing; they are left white.");
}

TEST(Hardcopy, NumbersThatAreNoBytes) {
  const std::pair<const char*, std::vector<std::uint8_t>> cases[] = {
      {"255 256 257 1", {255, 0, 1}},
      {"-1,-2, -256,-32768", {255, 254, 0, 0}},
      {"7,,8 ,\t9\n\n5 x 6y -", {7, 8, 9, 5, 0, 6, 0}},
      {"99999999999999999999 -99999999999999999999 3", {0, 3}}};
  for (const auto& [numbers, bytes] : cases)
    EXPECT_EQ(read("date\n" + std::string(numbers)).pictures.at(0).bytes, bytes) << numbers;
}

TEST(Hardcopy, EachDownloadInAFileIsAPicture) {
  const std::string download = "2026-01-05 10:00:00\r\n" + words(3839, "00000") + "-32767\r\n";
  const HardcopyFile one = read(download + words(30, "00255"));
  EXPECT_EQ(hardcopy_hint(one, 0, Language::english), "");
  EXPECT_EQ(dot_picture(one.pictures.at(0)).rows.at(127), std::string(232, ' ') + "#" + std::string(7, ' '));

  const HardcopyFile two = read("2026-01-05 9:59:00\r\n" + words(900, "00255") + download);
  EXPECT_EQ(hardcopy_hint(two, 0, Language::english),
            "Picture 1 of 2. 2940 of 3840 bytes are missing; they are left white.");
  EXPECT_EQ(dot_picture(two.pictures.at(0)).rows.at(29), std::string(240, '#'));
  EXPECT_EQ(dot_picture(two.pictures.at(0)).rows.at(30), std::string(240, ' '));
  EXPECT_EQ(two.pictures.at(1).date_line, "2026-01-05 10:00:00");
}

// The date of a download can be typed by the user; behind a whole picture its numbers were thrown away.
TEST(Hardcopy, AnyTextBehindAWholePictureBeginsTheNextOne) {
  for (const char* date : {"5 May 2026 10:30", "2026-01-05 10.30"}) {
    HardcopyFile file = read("first\n" + words(3840, "00255") + "00255\r\n\r\n" + date + "\r\n1\r\n");
    ASSERT_EQ(file.pictures.size(), 2u) << date;
    EXPECT_EQ(file.pictures[1].date_line, date);
    EXPECT_EQ(file.pictures[1].bytes, std::vector<std::uint8_t>{1});
    file.failure = FileFailure::failed;
    EXPECT_EQ(hardcopy_hint(file, 0, Language::english),
              "Picture 1 of 2. The file could not be read to its end.");
  }
}

TEST(Hardcopy, AnEmptyFileAndOneThatIsNoHardcopy) {
  EXPECT_EQ(read("").pictures.at(0).missing_bytes(), 3840u);
  std::string binary;
  for (unsigned i = 0, value = 1; i < 20000000; ++i, value = value * 1664525 + 1013904223)
    binary += static_cast<char>(value >> 24U);
  EXPECT_EQ(read(binary).failure, FileFailure::none);
  EXPECT_EQ(read("2026-01-05,10:00:00,230.1V\r\n2026-01-05,10:00:01,230.2V\r\n").pictures.size(), 1u);
}

}  // namespace
}  // namespace halden
