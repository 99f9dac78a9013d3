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

constexpr int rounds = 40;
constexpr std::size_t record_length = 418;

struct Counted {
  std::size_t records = 0;  // of the last block
  std::size_t blocks = 0;
  std::size_t torn = 0;
};

bool is_settings_line(const std::string& line) { return line.starts_with("3P4W,Hz=") && line.size() == 32; }

bool is_column_line(const std::string& line) {
  return line.starts_with("      DATE,") && line.ends_with("VA(MD)");
}

bool is_record(const std::string& line) {
  return line.size() == record_length && line[2] == '-' && line[10] == ',' && line.back() == ',';
}

Counted count_lines(const std::string& bytes) {
  Counted counted;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find("\r\n", begin), bytes.size());
    const std::string line = bytes.substr(begin, end - begin);
    if (is_settings_line(line)) {
      ++counted.blocks;
      counted.records = 0;
    } else if (is_record(line)) {
      ++counted.records;
    } else if (!is_column_line(line)) {
      ++counted.torn;
      EXPECT_LT(line.size(), record_length) << "two lines in one: " << line;
    }
    begin = end + 2;
  }
  return counted;
}

// The last number the recorder told.
std::size_t last_told(const std::string& output, std::size_t otherwise) {
  const std::size_t end = output.rfind('\n');  // a number may have been cut
  if (end == std::string::npos || end == 0) return otherwise;
  const std::size_t begin = output.rfind('\n', end - 1) + 1;
  return std::stoul(output.substr(begin, end - begin));
}

// Kills a recorder that has told of a few records, a random moment later; how many it told of in all.
std::size_t record_until_killed(const std::string& path, std::mt19937& random) {
  Process recorder({"halden-test-recorder", path});
  std::size_t told = 0;
  const auto enough = std::uniform_int_distribution<std::size_t>(1, 20)(random);
  while (told < enough) {
    const auto line = recorder.read_line();
    if (!line) return 0;
    told = std::stoul(*line);
  }
  // No waiting for anything: the moment of the kill is what is tried.
  const std::chrono::microseconds moment(std::uniform_int_distribution<int>(0, 3000)(random));
  for (const auto until = std::chrono::steady_clock::now() + moment;
       std::chrono::steady_clock::now() < until;)
    std::this_thread::yield();
  recorder.send_signal(SIGKILL);
  EXPECT_EQ(recorder.exit_code(), -SIGKILL);
  return last_told(recorder.rest_of_output(), told);
}

TEST(KilledRecording, LosesNoLineThatWasWritten) {
  TempFolder folder;
  const std::string path = folder / "a.csv";
  std::mt19937 random(20261123);
  std::string before;
  std::size_t torn_by_us = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    const std::size_t told = record_until_killed(path, random);
    ASSERT_GT(told, 0u);
    const std::string bytes = folder.read("a.csv");
    ASSERT_EQ(bytes.compare(0, before.size(), before), 0) << "what stood there has changed";
    const Counted counted = count_lines(bytes);
    ASSERT_GE(counted.records, told) << "round " << round;
    ASSERT_EQ(counted.blocks, round + 1);
    ASSERT_LE(counted.torn, torn_by_us + round + 1);
    before = bytes;
    if (round % 2 == 0) {  // and a power cut that takes a part of the last line along
      before.resize(bytes.size() - std::uniform_int_distribution<std::size_t>(1, 300)(random));
      std::filesystem::resize_file(path, before.size());
      ++torn_by_us;
    }
  }
}

}  // namespace
}  // namespace halden
