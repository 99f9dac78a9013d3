#include "simulator/meter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace halden::simulator {
namespace {

// 3P4W with numbers of every sign and width, over range in phase 3.
void fix_load(Meter& meter) {
  meter.load().fix_raw(1, {2301, 8123, 1812, 0, 142});
  meter.load().fix_raw(2, {2295, 12345, -305, 1200, 1342});
  meter.load().fix_raw(3, {1234567, -1, -1234567, -1198, -1058});
}

constexpr char group_1[] = "V1=  2301  I1=  8123  W1=  1812  P1=     0  Q1=   142";
constexpr char group_2[] = "V2=  2295  I2= 12345  W2=  -305  P2=  1200  Q2=  1342";
constexpr char group_3[] = "V3=999999  I3=    -1  W3=-99999  P3= -1198  Q3= -1058";

// The complete answer to one request sent at a quiet moment.
std::string answer(Meter& meter, std::string_view request, double now_s = 0.0) {
  meter.take_output(now_s);
  meter.receive(request, now_s);
  return meter.take_output(now_s + 60.0);
}

TEST(PowerFrame, HasOneGroupPerPhaseInUse) {
  const std::string one = group_1, two = one + group_2, three = two + group_3;
  const std::pair<Wiring, std::string> cases[] = {
      {Wiring::w1p2w, one}, {Wiring::w1p3w, two}, {Wiring::w3p3w, three}, {Wiring::w3p4w, three}};
  for (const auto& [wiring, expected] : cases) {
    Meter meter;
    fix_load(meter);
    meter.settings().wiring = wiring;
    EXPECT_EQ(answer(meter, " "), expected);
  }
}

// Every field has a value of its own, so that two exchanged fields show.
TEST(StatusReply, TellsEverySettingInItsPlace) {
  MeterSettings settings;
  settings.mode = MeterMode::harmonics;
  settings.channel = 5;
  settings.wiring = Wiring::w3p3w;
  settings.frequency_code = 2;
  settings.pt_ratio = 110;
  settings.ct_ratio = 123456;
  settings.sample_seconds = 4;
  settings.harmonic_order = 60;
  settings.md_period = 30;
  settings.current_range = 3;
  settings.clamp_flags = 0x600;
  settings.logger = {2, 4, 1, 0, 1, 21, 22, 6, 16384, 7, 12};
  settings.clock_start = {2026, 12, 31, 23, 59, 58};
  Meter meter(settings);
  EXPECT_EQ(answer(meter, "?", 1000.0),  // spoken to for the first time
            "00000 00005 00002 00002 00000 00110 123456 00004 00000 00060 00000 00030 "
            "00002 00004 00001 00000 00256 00021 00022 00006 16384 00000 00000 00003 00000 00000 01536 "
            "00007 00026 00012 00031 00023 00059 00058 00012 ");
  const std::string in_new_year = answer(meter, "?", 1065.9);
  EXPECT_EQ(in_new_year.substr(in_new_year.size() - 42), "00027 00001 00001 00000 00001 00003 00012 ");
}

TEST(SettingCommands, TakeEffectAtTheCarriageReturnOrNotAtAll) {
  const struct {
    std::string_view sent;
    int ct, pt, md, seconds, frequency;
  } cases[] = {
      {"C100\r", 100, 1, 15, 2, 1},  {"V20\r", 1, 20, 15, 2, 1},   {"M30\r", 1, 1, 30, 2, 1},
      {"S4\r", 1, 1, 15, 4, 1},      {"F2\r", 1, 1, 15, 2, 2},     {"F7\r", 1, 1, 15, 2, 0},
      {"C100", 1, 1, 15, 2, 1},      {"F\r", 1, 1, 15, 2, 1},      {"C1x\r", 1, 1, 15, 2, 1},
      {"C 5\r", 1, 1, 15, 2, 1},     {"S2.5\r", 1, 1, 15, 2, 1},   {"C123456\r", 1, 1, 15, 2, 1},
      {"C0\r", 1, 1, 15, 2, 1},      {"C-5\r", 1, 1, 15, 2, 1},    {"C99999\rV3\r", 99999, 3, 15, 2, 1},
      {"CV3\rS6\r", 1, 1, 15, 6, 1}, {"\r5\rM7\r", 1, 1, 7, 2, 1}, {"c100\r", 1, 1, 15, 2, 1},
  };
  for (const auto& row : cases) {
    Meter meter;
    double now_s = 0.0;
    for (const char byte : row.sent) meter.receive(std::string(1, byte), now_s += 0.5);
    const MeterSettings& now = meter.settings();
    EXPECT_EQ((std::array{now.ct_ratio, now.pt_ratio, now.md_period, now.sample_seconds, now.frequency_code}),
              (std::array{row.ct, row.pt, row.md, row.seconds, row.frequency}))
        << row.sent;
    EXPECT_EQ(meter.take_output(100.0), "") << row.sent;
  }
}

TEST(SettingCommands, ABrokenOffCommandDoesNotDeafenTheMeter) {
  Meter meter;
  meter.receive("C12", 0.0);
  EXPECT_EQ(answer(meter, "?", 2.0), "");  // still taken for a part of the value
  EXPECT_EQ(answer(meter, "?", 62.0).size(), 210U);
  EXPECT_EQ(meter.settings().ct_ratio, 1);
}

TEST(Meter, AnswersOnlyWhatItsModeKnows) {
  Meter meter;
  EXPECT_EQ(answer(meter, "Wx\r\n\x03\x04R0"), "");
  EXPECT_EQ(answer(meter, "?", 100.0).size(), 210U);
  meter.settings().mode = MeterMode::harmonics;
  EXPECT_EQ(answer(meter, " ", 200.0).size(), 1957U);
  EXPECT_EQ(answer(meter, "W", 300.0).size(), 2108U);
  EXPECT_EQ(answer(meter, "?", 400.0).size(), 210U);
}

// 20 ms of latency, then 960 bytes a second. In virtual time the clock jumps to next_output_s: a byte must be
// there then and not before, also when numbers have grown large.
TEST(Pacing, TheAnnouncedMomentBringsExactlyOneByte) {
  for (const double start_s : {0.0, 0.1, 86399.7, 12345678.9}) {
    Meter meter;
    fix_load(meter);
    meter.receive(" ", start_s);
    double now_s = start_s;
    std::string taken;
    for (int i = 1; i <= 159; ++i) {
      const double next_s = meter.next_output_s(now_s);
      ASSERT_NEAR(next_s, start_s + 0.02 + i / 960.0, 1e-6) << start_s << " byte " << i;
      ASSERT_EQ(meter.output_waiting(std::midpoint(now_s, next_s)), 0U) << start_s << " byte " << i;
      ASSERT_EQ(meter.output_waiting(next_s), 1U) << start_s << " byte " << i;
      taken += meter.take_output(now_s = next_s);
    }
    EXPECT_EQ(taken, std::string(group_1) + group_2 + group_3);
    EXPECT_TRUE(std::isinf(meter.next_output_s(now_s)));
  }
}

TEST(Pacing, OneFurtherRequestIsKeptAndUntakenOutputIsBounded) {
  Meter meter;
  meter.receive(" ", 0.0);
  meter.receive("?", 0.05);
  meter.receive(" ", 0.06);                                      // one too many
  EXPECT_EQ(meter.output_waiting(0.185625), 159U);               // the first is complete,
  EXPECT_EQ(meter.output_waiting(0.185625 + 10.5 / 960), 169U);  // the second follows at once,
  EXPECT_EQ(meter.take_output(60.0).size(), 159U + 210U);        // the third was not kept
  for (int i = 0; i < 1000; ++i) meter.receive(" ", 100.0 + i);
  EXPECT_EQ(meter.output_waiting(2000.0), 65536U);
  EXPECT_EQ(meter.take_output(2000.0).size(), 65536U);
}

}  // namespace
}  // namespace halden::simulator
