#include "simulator/console.h"

#include <gtest/gtest.h>

namespace halden::simulator {
namespace {

TEST(Console, CommandsAreTheButtonsOfTheMeter) {
  Meter meter;
  for (const char* line : {"mode harmonics", "wiring 1P3W", "  channel  5 ", "silence on\r", "garbage on",
                           "fault cut=7", "raw 2 2301 -1 -305 1200 -1800"})
    EXPECT_EQ(apply_command(line, meter).text, "ok") << line;
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
  EXPECT_EQ(apply_command("  ", meter).text, "");
  meter.receive(std::string_view("? \r\n\"\\\0\xfe", 8), 0.0);
  EXPECT_EQ(apply_command("log", meter).text, R"(8 "? \r\n\"\\\x00\xfe")");
  EXPECT_FALSE(apply_command("log", meter).quit);
}

TEST(Console, NonsenseIsAnsweredAndChangesNothing) {
  Meter meter;
  for (const char* line : {"mode", "mode loud", "wiring 3p4w", "channel 6", "channel -1", "channel 1x",
                           "garbage 1", "raw 1 2 3 4 5", "raw 0 1 2 3 4 5", "raw 4 1 2 3 4 5",
                           "raw 1 2 3 4 5 x", "raw on", "unplug -1", "unplug nan", "fault x", "\x80\xff"})
    EXPECT_EQ(apply_command(line, meter).text, std::string("error: not understood: ") + line);
  EXPECT_EQ(meter.settings().mode, MeterMode::power);
  EXPECT_EQ(meter.settings().channel, 0);
  EXPECT_FALSE(meter.faults().garbage);
}

}  // namespace
}  // namespace halden::simulator
