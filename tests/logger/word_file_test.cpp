#include "logger/word_file.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

using namespace std::string_view_literals;

// How many words there are, their sum, and whether the reader failed.
std::string summary_of(VirtualFiles& files) {
  WordReader words(files, "words");
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
}

TEST(WordFile, ATextThatIsNoWordIsTheEnd) {
  std::string across_pieces = "00003\r\n";  // 7 bytes before lines of 8, so that 64 KiB end inside a word
  for (int word = 0; word < 50000; ++word) across_pieces += "-00002\r\n";
  VirtualFiles files;
  for (const auto& [content, summary] : {std::pair<std::string, std::string>("", "0 words, 0"),
                                         {across_pieces, "50001 words, -99997"},
                                         {"00230\r\n-00002", "2 words, 228"},
                                         {"00230\r\n0x002\r\n00001\r\n", "1 words, 230, failed"},
                                         {"00230\r\n32768\r\n", "1 words, 230, failed"},
                                         {"00230\r\n\r\n00001\r\n", "1 words, 230, failed"},
                                         {"00230 00001\r\n", "0 words, 0, failed"},
                                         {std::string(200000, '0'), "0 words, 0, failed"}}) {
    files.contents["words"] = content;
    EXPECT_EQ(summary_of(files), summary) << content.substr(0, 30);
  }
}

}  // namespace
}  // namespace halden
