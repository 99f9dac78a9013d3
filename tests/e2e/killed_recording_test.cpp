// What a recording program leaves behind when it is killed, again and again, at any moment.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "process.h"
#include "temp_folder.h"

namespace halden {
namespace {

constexpr std::size_t rounds = 40;
constexpr std::size_t record_length = 418;

struct Counted {
  std::size_t records = 0;  // of the last block
  std::size_t blocks = 0;
  std::size_t torn = 0;
};

Counted count_lines(const std::string& bytes) {
  Counted counted;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find("\r\n", begin), bytes.size());
    const std::string line = bytes.substr(begin, end - begin);
    if (line.starts_with("3P4W,Hz=") && line.size() == 32) {
      ++counted.blocks;
      counted.records = 0;
    } else if (line.size() == record_length && line[2] == '-' && line[10] == ',' && line.back() == ',') {
      ++counted.records;
    } else if (!line.starts_with("      DATE,") || !line.ends_with("VA(MD)")) {
      ++counted.torn;
      EXPECT_LT(line.size(), record_length) << "two lines in one: " << line;
    }
    begin = end + 2;
  }
  return counted;
}

// Kills a recorder that has told of a few records, a random moment later; how many it told of in all.
std::size_t record_until_killed(const std::string& path, std::mt19937& random) {
  Process recorder({"halden-test-recorder", path});
  const std::size_t enough = 1 + random() % 20;
  std::size_t told = 0;
  while (const auto line = recorder.read_line()) {
    told = std::stoul(*line);
    if (told != enough) continue;
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
    recorder.send_signal(SIGKILL);
  }
  EXPECT_EQ(recorder.exit_code(), -SIGKILL);
  return told;
}

TEST(KilledRecording, LosesNoLineThatWasWritten) {
  TempFolder folder;
  std::mt19937 random(20261123);
  std::string before;
  std::size_t torn_by_us = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    const std::size_t told = record_until_killed(folder / "a.csv", random);
    ASSERT_GT(told, 0u);
    const std::string bytes = folder.read("a.csv");
    ASSERT_EQ(bytes.compare(0, before.size(), before), 0) << "what stood there has changed";
    const Counted counted = count_lines(bytes);
    ASSERT_GE(counted.records, told) << "round " << round;
    ASSERT_EQ(counted.blocks, round + 1);
    ASSERT_LE(counted.torn, torn_by_us + round + 1);
    before = bytes;
    if (round % 2 == 0) {  // and a power cut that takes a part of the last line along
      before.resize(bytes.size() - 1 - random() % 300);
      std::filesystem::resize_file(folder / "a.csv", before.size());
      ++torn_by_us;
    }
  }
}

}  // namespace
}  // namespace halden
