// What a recording program leaves behind when it is killed, again and again, at any moment.
#include <algorithm>
#include <random>

#include "program.h"

namespace halden {
namespace {

struct Counted {
  std::size_t records = 0;  // of the last block
  std::size_t blocks = 0;
  std::size_t torn = 0;
};

Counted count_lines(const std::string& bytes) {
  constexpr std::size_t record_length = 418;
  Counted counted;
  for (std::size_t begin = 0, end = 0; begin < bytes.size(); begin = end + 2) {
    end = std::min(bytes.find("\r\n", begin), bytes.size());
    const std::string line = bytes.substr(begin, end - begin);
    if (line.starts_with("3P4W,Hz=") && line.size() == 32) {
      counted = {0, counted.blocks + 1, counted.torn};
    } else if (line.size() == record_length && line[2] == '-' && line[10] == ',' && line.back() == ',') {
      ++counted.records;
    } else if (!line.starts_with("      DATE,") || !line.ends_with("VA(MD)")) {
      ++counted.torn;
      EXPECT_LT(line.size(), record_length) << "two lines in one: " << line;
    }
  }
  return counted;
}

// Kills a recorder that has told of a few records, a random moment later; how many it told of in all.
std::size_t record_until_killed(const std::string& path, std::mt19937& random) {
  Program recorder("halden-test-recorder " + path);
  const std::size_t enough = 1 + random() % 20;
  std::size_t told = 0;
  for (std::string line; !(line = recorder.read_line()).empty();) {
    told = std::stoul(line);
    if (told != enough) continue;
    QThread::usleep(random() % 3000);
    recorder.send_signal(SIGKILL);
  }
  EXPECT_EQ(recorder.end().exit_code, -SIGKILL);
  return told;
}

// After every second round a power cut takes a part of the last line along.
TEST(KilledRecording, LosesNoLineThatWasWritten) {
  TempFolder folder;
  std::mt19937 random(20261123);
  std::string before;
  for (std::size_t round = 0; round < 40; ++round) {
    const std::size_t told = record_until_killed(folder / "a.csv", random);
    ASSERT_GT(told, 0u);
    const std::string bytes = folder.read("a.csv");
    ASSERT_TRUE(bytes.starts_with(before)) << "what stood there has changed";
    const Counted counted = count_lines(bytes);
    ASSERT_GE(counted.records, told) << "round " << round;
    ASSERT_EQ(counted.blocks, round + 1);
    ASSERT_LE(counted.torn, (round + 1) / 2 + round + 1);
    before = bytes.substr(0, bytes.size() - (round % 2 == 0 ? 1 + random() % 300 : 0));
    QFile::resize(QString::fromStdString(folder / "a.csv"), static_cast<qint64>(before.size()));
  }
}

}  // namespace
}  // namespace halden
