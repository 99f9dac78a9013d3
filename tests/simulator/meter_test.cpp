#include "simulator/meter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "platform/virtual/scripted_port.h"
#include "simulator/console.h"
#include "simulator/demo_port.h"

namespace halden::simulator {
namespace {

// 3P4W with numbers of every sign and width, over range in phase 3.
void fix_load(Meter& meter) {
  meter.load().fix_raw(1, {2301, 8123, 1812, 0, 142});
  meter.load().fix_raw(2, {2295, 12345, -305, 1200, 1342});
  meter.load().fix_raw(3, {1234567, -1, -1234567, -1198, -1058});
}

// The complete answer to one request sent at a quiet moment.
std::string answer(Meter& meter, std::string_view request, double now_s = 0.0) {
  meter.take_output(now_s);
  meter.receive(request, now_s);
  return meter.take_output(now_s + 60.0);
}

TEST(PowerFrame, HasOneGroupPerPhaseInUse) {
  const std::string groups =
      "V1=  2301  I1=  8123  W1=  1812  P1=     0  Q1=   142"
      "V2=  2295  I2= 12345  W2=  -305  P2=  1200  Q2=  1342"
      "V3=999999  I3=    -1  W3=-99999  P3= -1198  Q3= -1058";
  const std::pair<Wiring, std::size_t> cases[] = {
      {Wiring::w1p2w, 1}, {Wiring::w1p3w, 2}, {Wiring::w3p3w, 3}, {Wiring::w3p4w, 3}};
  for (const auto& [wiring, phases] : cases) {
    Meter meter;
    fix_load(meter);
    meter.settings().wiring = wiring;
    EXPECT_EQ(answer(meter, " "), groups.substr(0, phases * 53));
  }
}

// 230.1 V x 8.123 A x cos 14.2 = 1812.0 W
TEST(Load, RawUnitsFollowRangeAndLagConvention) {
  const struct {
    Reading reading;
    int range;
    std::array<int, 5> raw;
  } cases[] = {
      {{230.1, -120.0, 8.123, 14.2}, 1, {2301, 8123, 1812, 1200, 1342}},
      {{230.1, 120.0, 8.123, 14.2}, 2, {2301, 812, 181, -1200, -1058}},
      {{230.1, 0.0, 8.123, 14.2}, 0, {2301, -1, -1, 0, 142}},  // more than 3 A
      {{230.1, 0.0, 3.0, 0.0}, 0, {2301, 30000, 6903, 0, 0}},
      {{120.0, 180.0, 1.0, -10.0}, 1, {1200, 1000, 118, 1800, 1700}},
      {{100.0, -175.0, 1.0, 60.0}, 1, {1000, 1000, 50, 1750, -1250}},  // 2350 - 3600
      {{100.0, 0.0, 1.0, 120.0}, 1, {1000, 1000, -50, 0, 1200}},       // power flows back
  };
  for (const auto& row : cases) {
    const auto [v, i, w, p, q] = to_raw(row.reading, row.range);
    EXPECT_EQ((std::array{v, i, w, p, q}), row.raw) << "range " << row.range;
  }
}

TEST(Load, IsBelievableAllDayAndFitsTheWiring) {
  const Load load;
  MeterSettings settings;
  const int angles[] = {0, 1200, -1200};
  for (int phase = 1; phase <= 3; ++phase)
    for (double t = 0.0; t < 86400.0; t += 97.0) {
      const RawPhase raw = load.raw(phase, settings, t);
      ASSERT_NEAR(raw.v, 2300, 40);
      ASSERT_NEAR(raw.i, 9000, 4000);
      ASSERT_NEAR(raw.p, angles[phase - 1], 5);
      ASSERT_NEAR(std::remainder(raw.q - raw.p, 3600), 150, 50);
    }
  EXPECT_NE(load.raw(1, settings, 0.0), load.raw(1, settings, 60.0));
  settings.wiring = Wiring::w1p3w;
  EXPECT_NEAR(std::abs(load.raw(2, settings, 500.0).p), 1800, 5);
  EXPECT_EQ(load.raw(3, settings, 500.0), RawPhase());
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

// A broken-off command swallows what follows, but not for ever.
TEST(Meter, AnswersOnlyWhatItsModeKnows) {
  const struct {
    MeterMode mode;
    std::string_view sent;
    double now_s;
    std::size_t bytes;
  } rows[] = {{MeterMode::power, "Wx\r\n\x03\x04R0", 0, 0},
              {MeterMode::power, "?", 100, 210},
              {MeterMode::harmonics, " ", 200, 1957},
              {MeterMode::harmonics, "W", 300, 2108},
              {MeterMode::harmonics, "?", 400, 210},
              {MeterMode::power, "C12", 500, 0},
              {MeterMode::power, "?", 502, 0},
              {MeterMode::power, "?", 562, 210}};
  Meter meter;
  for (const auto& row : rows) {
    meter.settings().mode = row.mode;
    EXPECT_EQ(answer(meter, row.sent, row.now_s).size(), row.bytes) << row.now_s;
  }
  EXPECT_EQ(meter.settings().ct_ratio, 1);
}

// 20 ms of latency, then 960 bytes a second. In virtual time the clock jumps to next_output_s: a byte must be
// there then and not before, also when numbers have grown large.
TEST(Pacing, TheAnnouncedMomentBringsExactlyOneByte) {
  for (const double start_s : {0.0, 0.1, 86399.7, 12345678.9}) {
    Meter meter;
    fix_load(meter);
    meter.receive(" ", start_s);
    double now_s = start_s;
    for (int i = 1; i <= 159; ++i) {
      const double next_s = meter.next_output_s(now_s);
      ASSERT_NEAR(next_s, start_s + 0.02 + i / 960.0, 1e-6) << start_s << " byte " << i;
      ASSERT_EQ(meter.output_waiting(std::midpoint(now_s, next_s)), 0U) << start_s << " byte " << i;
      ASSERT_EQ(meter.output_waiting(next_s), 1U) << start_s << " byte " << i;
      ASSERT_EQ(meter.take_output(now_s = next_s).size(), 1U) << start_s << " byte " << i;
    }
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

// A meter with that fault on, whose status reply is "ABCDEFGHIJ", asked for it at 0.
Meter asked(std::string_view fault) {
  Meter meter;
  EXPECT_TRUE(switch_on(fault, meter.faults())) << fault;
  meter.faults().status_reply = "ABCDEFGHIJ";
  meter.receive("?", 0.0);
  return meter;
}

TEST(Faults, SpoilAndDelayTheReply) {
  const std::pair<std::string_view, std::string> cases[] = {
      {"silence", ""},          {"cut=4", "ABCD"},           {"cut=0", ""},
      {"cut=99", "ABCDEFGHIJ"}, {"drop=3", "ABDEGHJ"},       {"doubled", "ABCDEFGHIJABCDEFGHIJ"},
      {"late=5", "ABCDEFGHIJ"}, {"split=4:5", "ABCDEFGHIJ"}, {"unplugged", ""}};
  for (const auto& [fault, reply] : cases) EXPECT_EQ(asked(fault).take_output(60.0), reply) << fault;
  for (const char* fault :
       {"", "nonsense", "cut", "cut=", "cut=x", "cut=-1", "late=1s", "split=4", "silence=1"}) {
    Faults faults;
    EXPECT_FALSE(switch_on(fault, faults)) << fault;
    EXPECT_FALSE(faults.cut_after || faults.split_after) << fault;
  }
  const Meter split = asked("split=4:1");
  EXPECT_EQ(split.output_waiting(0.9), 4U);
  EXPECT_NEAR(split.next_output_s(0.9), 1.02 + 5.0 / 960, 1e-9);
  EXPECT_EQ(split.output_waiting(1.02 + 5.5 / 960), 5U);
  const Meter late = asked("late=0.5");
  EXPECT_EQ(late.output_waiting(0.52), 0U);
  EXPECT_EQ(late.output_waiting(0.54), 10U);
}

// Every frame begins 20 ms after its request. A byte that asks for nothing restarts nothing.
TEST(Faults, AMeterThatRestartsEndsNoFrameInsideWhichARequestComes) {
  Meter meter;
  ASSERT_TRUE(switch_on("restarts", meter.faults()));
  const std::string head = answer(meter, " ").substr(0, 6);
  for (const double now_s : {100.0, 100.1, 100.2}) meter.receive(" ", now_s);  // 76 of 159 bytes each time
  meter.receive("Wx", 100.25);
  EXPECT_EQ(meter.output_waiting(100.3), 3 * 76U);
  const std::string output = meter.take_output(160.0);
  ASSERT_EQ(output.size(), 2 * 76U + 159U);
  for (const std::size_t begin : {0U, 76U, 152U}) EXPECT_EQ(output.substr(begin, 6), head) << begin;
}

TEST(Faults, AnEndlessStreamNeedsNoRequestAndNoMemory) {
  Meter meter;
  meter.faults().endless_stream = true;
  EXPECT_EQ(meter.take_output(5.0), "");  // begins when it is first noticed
  meter.receive("? ", 5.5);
  EXPECT_EQ(meter.take_output(6.0).size(), 960U);
  EXPECT_EQ(meter.output_waiting(86400.0), 65536U);
  EXPECT_EQ(meter.take_output(86400.0).size(), 65536U);
}

TEST(Console, CommandsAreTheButtonsOfTheMeterAndNonsenseChangesNothing) {
  Meter meter;
  for (const char* line : {"mode harmonics", "wiring 1P3W", "  channel  5 ", "silence on\r", "garbage on",
                           "fault cut=7", "raw 2 2301 -1 -305 1200 -1800"})
    EXPECT_EQ(apply_command(line, meter).text, "ok") << line;
  for (const char* line : {"mode", "mode loud", "wiring 3p4w", "channel 6", "channel -1", "channel 1x",
                           "garbage 1", "raw 1 2 3 4 5", "raw 0 1 2 3 4 5", "raw 4 1 2 3 4 5",
                           "raw 1 2 3 4 5 x", "raw on", "unplug -1", "unplug nan", "fault x", "\x80\xff"})
    EXPECT_EQ(apply_command(line, meter).text, std::string("error: not understood: ") + line);
  EXPECT_EQ(meter.settings().mode, MeterMode::harmonics);
  EXPECT_EQ(meter.settings().wiring, Wiring::w1p3w);
  EXPECT_EQ(meter.settings().channel, 5);
  EXPECT_TRUE(meter.faults().silence && meter.faults().garbage);
  EXPECT_EQ(meter.faults().cut_after, 7U);
  EXPECT_EQ(meter.load().raw(2, meter.settings(), 0.0), (RawPhase{2301, -1, -305, 1200, -1800}));
  for (const char* line : {"silence off", "fault none", "raw off", "mode power"})
    EXPECT_EQ(apply_command(line, meter).text, "ok");
  EXPECT_FALSE(meter.faults().silence || meter.faults().garbage || meter.faults().cut_after);
  EXPECT_EQ(meter.settings().mode, MeterMode::power);
  EXPECT_GT(meter.load().raw(2, meter.settings(), 0.0).i, 4000);
  EXPECT_EQ(apply_command("unplug 2.5", meter).unplug_s, 2.5);
  EXPECT_TRUE(apply_command("quit", meter).quit);
  EXPECT_TRUE(apply_command("transient", meter).press_transient);
  EXPECT_EQ(apply_command("  ", meter).text, "");
  meter.receive(std::string_view("? \r\n\"\\\0\xfe", 8), 0.0);
  EXPECT_EQ(apply_command("log", meter).text, R"(8 "? \r\n\"\\\x00\xfe")");
}

TEST(DemoPort, SendsOnlyNumberOneToTheMeter) {
  VirtualWorld world;
  Meter meter;
  SimulatedPort simulated{world.clock, meter};
  ScriptedPort real{world};
  DemoPort demo(simulated, real);
  EXPECT_EQ(demo.device_name(1) + ", " + demo.device_name(7), "simulated meter, script 7");
  real.refusals[1] = real.refusals[8] = PortRefusal::missing;
  EXPECT_TRUE(demo.present(1) && demo.present(7) && !demo.present(8));
  demo.open(1);
  demo.send("?");
  EXPECT_EQ(meter.log().size(), 1U);
  demo.open(7);
  EXPECT_EQ(simulated.state(), PortState::closed);
  real.answer("W", "real");
  demo.send("W");
  world.run_for(0.1);
  EXPECT_EQ(demo.receive(), "real");
  demo.open(1);
  EXPECT_EQ(real.state(), PortState::closed);
  EXPECT_EQ(demo.receive(), "") << "what came for the old program is lost";
}

}  // namespace
}  // namespace halden::simulator
