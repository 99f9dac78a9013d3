#include "simulator/memory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <tuple>

#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/screen_picture.h"
#include "simulator/simulated_port.h"
#include "simulator/stored_files.h"

namespace halden::simulator {
namespace {

std::string hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes)
    for (const int shift : {4, 0}) text += "0123456789ABCDEF"[byte >> shift & 0xF];
  return text;
}

int word(const std::string& bytes, std::size_t index) {
  return static_cast<std::int16_t>(std::stoi(hex(bytes.substr(2 * index, 2)), nullptr, 16));
}

TEST(StoredFiles, APowerRecordHasFiveWordsForEachPhaseInUse) {
  Load load;
  load.fix_raw(1, {2301, 8123, 1812, 0, 142});
  load.fix_raw(2, {2295, 12345, -305, 1200, 1342});
  load.fix_raw(3, {1234567, -1, -1234567, -1198, -1058});
  const std::string record =
      "08FD1FBB07140000008E"
      "08F73039FECF04B0053E"
      "7FFFFFFF8000FB52FBDE";
  for (const auto& [wiring, digits] :
       {std::pair{Wiring::w1p2w, 20U}, {Wiring::w1p3w, 40U}, {Wiring::w3p4w, 60U}}) {
    MeterSettings settings;
    settings.wiring = wiring;
    const std::string one = record.substr(0, digits);
    EXPECT_EQ(hex(power_file(load, settings, {}, 2).bytes), one + one);
  }
}

// THD-F is the root of the sum of squares of orders 2 and up.
TEST(StoredFiles, AHarmonicsRecordAgreesWithItself) {
  Load load;
  load.fix_raw(1, {2301, -1, -1, 0, 142});
  MeterSettings settings;
  settings.frequency_code = 2;
  const std::string bytes = harmonics_file(load, settings, {}, 2).bytes;
  EXPECT_NEAR(word(bytes, 0), 2301, 1);
  EXPECT_EQ(word(bytes, 3 + 1), 10000);
  double squares = 0.0;
  for (std::size_t order = 2; order <= 50; ++order) squares += std::pow(word(bytes, 3 + order), 2);
  EXPECT_NEAR(word(bytes, 54), std::sqrt(squares) / 10.0, 1.0);
  EXPECT_EQ(word(bytes, 55), 600);
  settings.channel = 1;
  EXPECT_EQ(hex(harmonics_file(load, settings, {}, 1).bytes.substr(0, 6)), "FFFFFFFFFFFF") << "over range";
}

TEST(StoredFiles, TheLeftmostDotOfAPictureIsTheLowestBit) {
  ScreenPicture picture;
  picture.draw_text(8, 0, "1");
  picture.draw_text(-3, 125, "8");  // half outside
  std::string column;
  for (std::size_t row = 0; row < 8; ++row) column += picture.bytes()[row * 30 + 1];
  EXPECT_EQ(hex(column),
            "04060404"
            "04040E00");
}

TEST(StoredFiles, TheButtonSendsTheTransientReport) {
  const TransientEvent events[] = {{15, 123, 1}, {90, 64536, 2}, {2 * 1440 + 61, 5, 8}};
  Meter meter;
  meter.memory().transient_report = transient_report({{2009, 2, 28, 23, 50, 10}, 1, 2300, 10}, events);
  meter.press_transient(0.0);
  EXPECT_EQ(meter.take_output(60.0),
            "09,02,28,23,50,10,1,2300,10\r\n"
            "  100:00:15   123  1\r\n"
            "  200:01:30  -1000  2\r\n"
            "  302:01:01     5  8\r\n");
}

TEST(ExampleMemory, HoldsEveryKindOfFile) {
  Memory memory = example_memory();
  std::string files;
  for (int i = 0; i < 7; ++i) {
    memory.select(i);
    const LoggerSettings told = memory.selected_settings();
    for (const int value : {told.data_type, told.wiring, told.channel}) files += std::to_string(value);
    files += ":" + std::to_string(memory.selected_bytes().size()) + " ";
  }
  EXPECT_EQ(files, "130:13500 120:1800 110:1200 100:600 030:2560 031:2560 230:7680 ");
  EXPECT_EQ(memory.selected_settings().file_count, 7);
}

// Files "ABCDEFGHIJ", "one" and "two".
struct FilledMeter : Meter {
  FilledMeter() {
    memory().store({{}, "ABCDEFGHIJ"});
    memory().store({{0, 5, 2, 2, 3, 21, 22, 6, 0xC000, 0, 0, MeterClock{2025, 12, 31, 23, 59, 58}}, "one"});
    memory().store({{}, "two"});
  }

  // Bytes are sent gap_s apart; returns what has been answered a minute later.
  std::string answer(std::string_view bytes, double gap_s = 2.0) {
    for (const char byte : bytes) receive(std::string(1, byte), now_s += gap_s);
    return take_output(now_s += 60.0);
  }

  double now_s = 0.0;
};

TEST(Selection, TakesEffectAtTheCarriageReturnOrNotAtAll) {
  const std::pair<std::string_view, std::string> rows[] = {
      {"", "ABCDEFGHIJ"}, {"R01\r", "one"}, {"R2\r", "two"},  {"R03\r", "two"},      {"R\r", "two"},
      {"Rx\r", "two"},    {"CR0\r", "two"}, {"RC7\r", "two"}, {"R0\r", "ABCDEFGHIJ"}};
  FilledMeter meter;
  for (const auto& [sent, file] : rows) {
    EXPECT_EQ(meter.answer(sent), "") << sent;
    EXPECT_EQ(meter.answer("\x04"), file) << sent;
  }
  meter.answer("R01\r");
  EXPECT_EQ(meter.answer("?").substr(12 * 6),
            "00000 00005 00002 00002 00768 00021 00022 00006 49152 00000 00000 00001 00000 00000 00000 "
            "00001 00025 00012 00031 00023 00059 00058 00003 ");
}

TEST(Erasing, NeedsTwoBytesWithNothingBetweenThem) {
  const std::tuple<std::string_view, double, bool> rows[] = {
      {"\x03", 2, false},      {"\x03\x03", 2, true},     {"\x03\x03", 5.1, false},
      {"\x03 \x03", 2, false}, {"\x03R\r\x03", 1, false}, {"\x03 \x03\x03", 2, true}};
  for (const auto& [sent, gap_s, erased] : rows) {
    FilledMeter meter;
    meter.answer(sent, gap_s);
    EXPECT_EQ(meter.answer("?").substr(34 * 6), erased ? "00000 " : "00003 ") << hex(sent) << gap_s;
    EXPECT_EQ(meter.answer("\x04"), erased ? "" : "ABCDEFGHIJ");
  }
}

TEST(FileFaults, SpoilTheFileAndNotTheStatusReply) {
  const std::pair<std::string_view, std::string> rows[] = {
      {"file_cut=3", "ABC"},          {"file_cut=99", "ABCDEFGHIJ"}, {"file_lose=0", "BCDEFGHIJ"},
      {"file_lose=10", "ABCDEFGHIJ"}, {"wrong_index=2", "two"},      {"file_pause=4:5.1", "ABCDEFGHIJ"}};
  for (const auto& [fault, file] : rows) {
    FilledMeter meter;
    ASSERT_TRUE(switch_on(fault, meter.faults())) << fault;
    EXPECT_EQ(meter.answer("?R0\r").size(), 210U) << fault;
    EXPECT_EQ(meter.answer("\x04"), file) << fault;
  }
  FilledMeter pausing;
  ASSERT_TRUE(switch_on("file_pause=4:4.9", pausing.faults()));
  pausing.receive("\x04", 0.0);
  EXPECT_EQ(pausing.output_waiting(4.9), 4U);
  EXPECT_NEAR(pausing.next_output_s(4.9), 0.02 + 4.9 + 5.0 / 960, 1e-9);
  for (const char* fault : {"file_cut", "file_lose=x", "file_pause=4", "wrong_index=-1", "file_sends_on=1e9"})
    EXPECT_FALSE(switch_on(fault, pausing.faults())) << fault;
}

// The port kept 64 KiB of what the program only counted: the rest of a long file was lost.
TEST(SimulatedPort, ALongReplyIsKeptWholeWhileTheProgramCountsIt) {
  VirtualWorld world;
  Meter meter;
  meter.memory().store({{}, std::string(80'000, 'A') + 'Z'});
  SimulatedPort port(world.clock, meter);
  port.open(1);
  port.send("\x04");
  for (int minute = 0; minute < 2; ++minute) {
    EXPECT_EQ(port.received_count(), minute * 57'580U);
    world.run_for(60.0);
  }
  EXPECT_EQ(port.receive().back(), 'Z');
}

// An hour of 960 bytes a second behind ten bytes of file and one extra; a poll afterwards has the usual limit
// again.
TEST(FileFaults, ALongReplyIsKeptWholeUntilItIsTaken) {
  FilledMeter meter;
  ASSERT_TRUE(switch_on("file_sends_on=3600", meter.faults()) && switch_on("file_extra=1", meter.faults()));
  meter.receive("\x04", 0.0);
  EXPECT_EQ(meter.output_waiting(1000.02), 960'000U);
  const std::string output = meter.take_output(4000.0);
  EXPECT_EQ(output.size(), 11U + 3'456'000U);
  for (int i = 0; i < 1000; ++i) meter.receive(" ", 5000.0 + i);
  EXPECT_EQ(meter.take_output(9000.0).size(), 65536U);
}

}  // namespace
}  // namespace halden::simulator
