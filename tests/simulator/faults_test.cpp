#include "simulator/faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "simulator/meter.h"

namespace halden {
namespace {

// A meter whose status reply is "ABCDEFGHIJ", asked at 0 with those faults on.
Meter asked(const Faults& faults) {
  Meter meter;
  meter.faults() = faults;
  meter.faults().status_reply = "ABCDEFGHIJ";
  meter.receive("?", 0.0);
  return meter;
}

TEST(Faults, SpoilTheReply) {
  struct Case {
    std::string_view fault;
    std::string expected;
  };
  const Case cases[] = {{"", "ABCDEFGHIJ"},       {"silence", ""},
                        {"cut=4", "ABCD"},        {"cut=0", ""},
                        {"cut=99", "ABCDEFGHIJ"}, {"doubled", "ABCDEFGHIJABCDEFGHIJ"},
                        {"drop=3", "ABDEGHJ"},    {"drop=1", ""},
                        {"late=5", "ABCDEFGHIJ"}, {"split=4:5", "ABCDEFGHIJ"},
                        {"unplugged", ""}};
  for (const Case& row : cases) {
    Faults faults;
    EXPECT_EQ(meter_side::switch_on(row.fault, faults), !row.fault.empty());
    EXPECT_EQ(asked(faults).take_output(60.0), row.expected) << row.fault;
  }
}

TEST(Faults, UnknownNamesAndNumbersAreRefused) {
  for (const char* fault :
       {"", "nonsense", "cut", "cut=", "cut=x", "cut=-1", "late=1s", "split=4", "silence=1"}) {
    Faults faults;
    EXPECT_FALSE(meter_side::switch_on(fault, faults)) << fault;
    EXPECT_FALSE(faults.cut_after.has_value()) << fault;
    EXPECT_EQ(faults.split_after, 0U) << fault;
  }
}

TEST(Faults, GarbageReplacesOrPrecedesTheReply) {
  Faults faults;
  faults.garbage_prefix = "#B9";
  EXPECT_EQ(asked(faults).take_output(60.0), "#B9ABCDEFGHIJ");
  faults = {};
  faults.garbage = true;
  const std::string garbage = asked(faults).take_output(60.0);
  EXPECT_EQ(garbage.size(), 10U);
  EXPECT_EQ(garbage.find_first_of("ABCDEFGHIJ"), std::string::npos);
}

TEST(Faults, NoiseBytesStandBetweenTheOthers) {
  Faults faults;
  faults.noise = true;
  std::string noisy = asked(faults).take_output(60.0);
  const auto is_noise = [](char c) { return c == '\0' || static_cast<unsigned char>(c) >= 0x80; };
  EXPECT_NE(noisy.find('\0'), std::string::npos);
  EXPECT_TRUE(
      std::any_of(noisy.begin(), noisy.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }));
  std::erase_if(noisy, is_noise);
  EXPECT_EQ(noisy, "ABCDEFGHIJ");
}

TEST(Faults, SplitAndLateRepliesComeInTheirTime) {
  Faults faults;
  faults.split_after = 4;
  faults.split_pause_s = 1.0;
  Meter split = asked(faults);
  EXPECT_EQ(split.output_waiting(0.9), 4U);
  EXPECT_NEAR(split.next_output_s(0.9), 1.02 + 5.0 / 960, 1e-9);
  EXPECT_EQ(split.output_waiting(1.02 + 5.5 / 960), 5U);
  EXPECT_EQ(split.output_waiting(1.1), 10U);

  faults = {};
  faults.late_s = 0.5;
  Meter late = asked(faults);
  EXPECT_EQ(late.output_waiting(0.52), 0U);
  EXPECT_EQ(late.output_waiting(0.54), 10U);
}

TEST(Faults, ASilentMeterStillObeys) {
  Meter meter;
  meter.faults().silence = true;
  meter.receive("C5\r? ", 0.0);
  EXPECT_TRUE(std::isinf(meter.next_output_s(0.0)));
  EXPECT_EQ(meter.settings().ct_ratio, 5);
  EXPECT_EQ(meter.log().size(), 5U);
}

TEST(Faults, APrefixIsNoAnswerOfItsOwn) {
  Meter meter;
  meter.faults().garbage_prefix = "x";
  meter.receive("\rW", 0.0);
  EXPECT_EQ(meter.take_output(60.0), "");
}

TEST(Faults, AReplacedLiveFrameIsSentOnce) {
  Meter meter;
  meter.faults().next_live_frame = "V1=?";
  meter.receive("?", 0.0);
  EXPECT_EQ(meter.take_output(1.0).size(), 210U);
  meter.receive(" ", 1.0);
  EXPECT_EQ(meter.take_output(2.0), "V1=?");
  meter.receive(" ", 2.0);
  EXPECT_EQ(meter.take_output(3.0).size(), 159U);
}

TEST(Faults, AnEndlessStreamNeedsNoRequestAndNoMemory) {
  Meter meter;
  meter.faults().endless_stream = true;
  EXPECT_EQ(meter.take_output(5.0), "");  // begins when it is first noticed
  const std::string second = meter.take_output(6.0);
  EXPECT_EQ(second.size(), 960U);
  EXPECT_EQ(second.find_first_of("BEVIWPQ=? "), std::string::npos);
  EXPECT_NEAR(meter.next_output_s(6.0), 6.0 + 1.0 / 960, 1e-9);
  meter.receive("? ", 6.0);
  EXPECT_EQ(meter.take_output(6.5).size(), 480U);
  EXPECT_EQ(meter.output_waiting(86400.0), 65536U);
  EXPECT_EQ(meter.take_output(86400.0).size(), 65536U);
  EXPECT_EQ(meter.output_waiting(86400.0), 0U);
  meter.faults().endless_stream = false;
  EXPECT_EQ(meter.take_output(90000.0), "");
}

TEST(Faults, NothingGetsThroughACableThatIsOut) {
  Meter meter;
  meter.receive(" ", 0.0);
  EXPECT_EQ(meter.take_output(0.02 + 100.5 / 960).size(), 100U);
  meter.faults().unplugged = true;
  EXPECT_TRUE(std::isinf(meter.next_output_s(0.13)));
  EXPECT_EQ(meter.take_output(0.02 + 120.5 / 960), "");
  meter.receive("?", 0.15);
  meter.faults().unplugged = false;
  EXPECT_EQ(meter.take_output(1.0).size(), 35U);  // 0.13 s x 960 = 124.8 had been sent when it came back
  EXPECT_EQ(meter.log().size(), 1U);
}

}  // namespace
}  // namespace halden
