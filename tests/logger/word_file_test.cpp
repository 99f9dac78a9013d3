#include "logger/word_file.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

using namespace std::string_view_literals;

// How many words there are, their sum, and whether the reader failed.
std::string summary_of(VirtualFiles& files, const std::string& path) {
  WordReader words(files, path);
  int count = 0, sum = 0;
  while (const auto word = words.next()) {
    ++count;
    sum += *word;
  }
  EXPECT_FALSE(words.next()) << "the end stays the end";
  return std::to_string(count) + " words, " + std::to_string(sum) +
         (words.failure() == FileFailure::none ? "" : ", failed");
}

TEST(WordFile, BytesBecomeSignedWordsOneALine) {
  EXPECT_EQ(word_lines("\xFF\xFE\x7F\xFF\x80\x00\x00\xE6\x00"sv), "-00002\r\n32767\r\n-32768\r\n00230\r\n");
  EXPECT_EQ(word_of(0xFF, 0xFE), -2);
  EXPECT_EQ(word_of(0x7F, 0xFF), 32767);
  EXPECT_EQ(word_of(0x80, 0x00), -32768);
}

// 64 KiB are 8192 lines of "-00002": a word stands across each border between two pieces of the other
// lengths.
TEST(WordFile, WordsAreReadAcrossPieces) {
  VirtualFiles files;
  files.contents["words"] = "00003\r\n";
  for (int word = 0; word < 50000; ++word) files.contents["words"] += "-00002\r\n";
  EXPECT_EQ(summary_of(files, "words"), "50001 words, -99997");
}

TEST(WordFile, ATextThatIsNoWordIsTheEnd) {
  VirtualFiles files;
  for (const auto& [content, summary] : {std::pair("", "0 words, 0"),
                                         {"00230\r\n-00002", "2 words, 228"},
                                         {"00230\r\n0x002\r\n00001\r\n", "1 words, 230, failed"},
                                         {"00230\r\n32768\r\n", "1 words, 230, failed"},
                                         {"00230\r\n\r\n00001\r\n", "1 words, 230, failed"},
                                         {"00230 00001\r\n", "0 words, 0, failed"}}) {
    files.contents["words"] = content;
    EXPECT_EQ(summary_of(files, "words"), summary) << content;
  }
  files.contents["words"] = std::string(200000, '0');
  EXPECT_EQ(summary_of(files, "words"), "0 words, 0, failed");
  EXPECT_EQ(summary_of(files, "missing"), "0 words, 0, failed");
}

}  // namespace
}  // namespace halden
