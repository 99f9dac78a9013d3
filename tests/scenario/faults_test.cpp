#include <algorithm>
#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "companion_test_base.h"

namespace halden {
namespace {

struct Linked : testing::Test {
  Linked() {
    journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
    journey.fix_phase(2, {2298, 11870, 2655, 1200, 1332});
    journey.fix_phase(3, {2306, 13020, 2902, -1200, -1052});
    journey.start_on_port(1);
    journey.world.run_for(2);
  }

  // The panels are brought to another load, so that a test sees whether new frames arrive.
  void expect_resumes(const std::string& after) {
    journey.fix_phase(1, {2200, 12340, 2781, 0, 116});
    EXPECT_TRUE(journey.world.run_until([this] { return journey.text("V1_value") == "220.0V"; }, 12))
        << after;
    EXPECT_EQ(journey.program().link.link_lost, 0) << after;
    journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
    EXPECT_TRUE(journey.world.run_until([this] { return journey.text("V1_value") == "230.1V"; }, 12))
        << after;
  }

  Faults& faults() { return journey.meter.faults(); }

  Journey journey;
};

TEST_F(Linked, ALostLinkIsShownAfterSeventeenTicksAndReadingsResumeByThemselves) {
  faults().silence = true;
  journey.world.run_for(1.0);
  const double silent_from_s = journey.world.clock.monotonic_s();
  ASSERT_TRUE(journey.world.run_until([this] { return journey.window()["Warning"].visible; }, 10));
  EXPECT_NEAR(journey.world.clock.monotonic_s() - silent_from_s, 3.4, 0.5) << "4.25 s after the last frame";
  EXPECT_EQ(journey.text("Warning"), "No Com");
  EXPECT_TRUE(journey.world.run_until([this] { return journey.text("status_link") == "no answer"; }, 1));
  EXPECT_TRUE(journey.world.run_until([this] { return journey.world.shell.beeps == 1; }, 3));
  EXPECT_TRUE(journey.world.run_until([this] { return !journey.window()["Warning"].visible; }, 2.1))
      << "counting begins again, and the next sampling instant hides the warning";
  EXPECT_EQ(journey.text("V1_value"), "230.1V") << "the last reading stays";
  journey.world.run_for(60);
  EXPECT_EQ(journey.world.dialogs.message_texts().size(), 0u) << "never a box";
  faults().silence = false;
  expect_resumes("silence");
  EXPECT_EQ(journey.text("status_link"), "linked");
}

// A click that lands in a tick of a lost link: polling and its warning go on under the message it leads to.
TEST_F(Linked, PollingGoesOnUnderTheMessageOfAFailedQuery) {
  faults().silence = true;
  ASSERT_TRUE(journey.world.run_until([this] { return journey.program().link.missed_polls == 16; }, 10));
  journey.click_after(0.249, "get_hz");
  std::size_t requests = 0;
  journey.world.dialogs.while_open = [&](const Message&) {
    const double from_s = journey.world.clock.monotonic_s();
    journey.world.run_for(5);
    requests = journey.received(from_s + 0.001).size();
  };
  journey.world.run_for(20);
  EXPECT_EQ(journey.world.dialogs.messages.size(), 1u);
  EXPECT_GE(requests, 4u) << "a request a second";
}

TEST_F(Linked, AnAdapterPulledAndPutBackIsNoticedAndForgiven) {
  journey.port.unplug();
  journey.world.run_for(1);
  EXPECT_EQ(journey.text("status_link"), "adapter gone, waiting for it");
  journey.world.run_for(30);
  journey.port.plug_in();
  expect_resumes("unplugged while polling");

  // In the middle of a frame: 20 ms latency, then 166 ms on the line.
  ASSERT_TRUE(journey.world.run_until(
      [this] { return journey.meter.output_waiting(journey.world.clock.monotonic_s()) > 40; }, 2));
  journey.port.unplug();
  journey.world.run_for(3);
  journey.port.plug_in();
  expect_resumes("unplugged in the middle of a frame");
}

TEST_F(Linked, AnAdapterPulledDuringAStatusQueryFailsItAndPollingComesBack) {
  journey.click_after(0, "get_hz");
  journey.world.user_does(3.5, [this] { journey.port.unplug(); });
  journey.world.run_for(15);
  EXPECT_EQ(
      journey.world.dialogs.message_texts(),
      std::vector<std::string>{
          "Meter status could not be obtained, please check connections, com port, etc, and try again."});
  EXPECT_EQ(journey.text("ct_value"), "1") << "what was known stays";
  journey.port.plug_in();
  expect_resumes("unplugged during a status query");
}

TEST_F(Linked, SpoiledFramesAreSurvivedAndTheNextGoodOnesShown) {
  struct Case {
    const char* name;
    void (*spoil)(Faults&);
  };
  const Case cases[] = {
      {"garbage instead of frames", [](Faults& f) { f.garbage = true; }},
      {"garbage before each frame", [](Faults& f) { f.garbage_prefix = "x7#\x80\xFF"; }},
      {"a long prefix without a group", [](Faults& f) { f.garbage_prefix = std::string(300, '7'); }},
      {"cut in the first group", [](Faults& f) { f.cut_after = 30; }},
      {"cut at 51", [](Faults& f) { f.cut_after = 51; }},
      {"cut in the second group", [](Faults& f) { f.cut_after = 80; }},
      {"cut in the last value", [](Faults& f) { f.cut_after = 157; }},
      {"doubled", [](Faults& f) { f.doubled = true; }},
      {"every 7th byte lost", [](Faults& f) { f.drop_every = 7; }},
      {"8-bit noise", [](Faults& f) { f.noise = true; }},
      {"a harmonics frame in the power view",
       [](Faults& f) { f.next_live_frame = "B O=00000" + std::string(1900, ' ') + "E"; }},
      {"an endless stream", [](Faults& f) { f.endless_stream = true; }}};
  for (const Case& row : cases) {
    row.spoil(faults());
    journey.world.run_for(20);
    EXPECT_LE(journey.program().link.poll_buffer.size(), live_buffer_limit) << row.name;
    faults() = {};
    expect_resumes(row.name);
  }
  EXPECT_EQ(journey.world.dialogs.message_texts().size(), 0u);
}

TEST_F(Linked, LateAndSplitFramesAreReadCorrectly) {
  for (const double late_s : {0.1, 0.4, 0.9, 1.7}) {
    faults().late_s = late_s;
    expect_resumes("late by " + std::to_string(late_s));
  }
  faults() = {};
  for (const std::size_t after : {5u, 51u, 52u, 53u, 60u, 106u, 130u, 158u}) {
    faults().split_after = after;
    faults().split_pause_s = 0.15;
    expect_resumes("split after " + std::to_string(after));
    EXPECT_EQ(journey.text("VAR3_value"), "-0.768KVAR") << after;
    EXPECT_EQ(journey.text("W_sys_value"), "8.338KW") << after;
  }
}

// A frame broken off in the middle and asked for again: its head must not lend its values to the next one.
TEST_F(Linked, TheHeadOfACutFrameDoesNotMixWithTheNextFrame) {
  for (const std::size_t cut : {12u, 24u, 25u, 35u, 46u, 50u}) {
    journey.fix_phase(1, {1999, 19999, 1999, 0, 99});
    faults().cut_after = cut;
    journey.world.run_for(0.5);
    journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
    faults() = {};
    for (int n = 0; n < 30; ++n) {
      journey.world.run_for(0.1);
      const std::string shown = journey.text("V1_value") + " " + journey.text("I1_value") + " " +
                                journey.text("W1_value") + " " + journey.text("Phase1_value");
      EXPECT_TRUE(shown == "230.1V 12.34A 2.781KW -011.6" || shown == "199.9V 19.99A 1.999KW -009.9")
          << shown << " after a cut at " << cut;
    }
  }
}

// A frame too many must not keep all later readings one frame behind.
TEST_F(Linked, SurplusFramesLeaveNoLagBehind) {
  faults().late_s = 1.7;  // the request is repeated meanwhile, so one frame too many comes
  journey.world.run_for(3);
  faults() = {};
  faults().doubled = true;
  journey.world.run_for(10);
  faults() = {};
  journey.world.run_for(5);
  journey.fix_phase(1, {2200, 12340, 2781, 0, 116});
  journey.world.run_for(1.1);
  EXPECT_EQ(journey.text("V1_value"), "220.0V");
  EXPECT_LT(journey.program().link.poll_buffer.size(), 160u);
}

TEST_F(Linked, AnEndlessStreamDoesNotHangAStatusQuery) {
  faults().endless_stream = true;
  journey.click_after(0, "get_hz");
  journey.world.run_for(0.001);
  EXPECT_TRUE(journey.world.run_until([this] { return !journey.program().gate.busy(); }, 30));
  faults() = {};
  expect_resumes("an endless stream");
}

struct SpoiledReply {
  const char* name;
  std::string reply;
  bool understood;
};

TEST_F(Linked, ASpoiledStatusReplyIsReportedOrReadAsFarAsItGoes) {
  std::string fields;
  for (int n = 0; n < 26; ++n) fields += "00001 ";  // 156 characters
  const std::string failed =
      "Meter status could not be obtained, please check connections, com port, etc, and try again.";
  for (const SpoiledReply& row :
       {SpoiledReply{"nothing", "", false}, SpoiledReply{"only a mark", "E", false},
        SpoiledReply{"160 characters", "E " + fields + "000 ", false},
        SpoiledReply{"161 characters", "E " + fields + "0000 ", true},
        SpoiledReply{"letters in the fields", "E" + fields + std::string(40, 'x') + " ", true},
        SpoiledReply{"no field at all", "E" + std::string(200, 'x'), false},
        SpoiledReply{"8-bit noise", "E" + std::string(300, '\xEE'), false},
        SpoiledReply{"zero bytes", std::string(300, '\0'), false}}) {
    faults().status_reply = row.reply;
    journey.world.dialogs.messages.clear();
    journey.companion->click("get_hz");
    EXPECT_EQ(journey.world.dialogs.message_texts(),
              row.understood ? std::vector<std::string>{} : std::vector<std::string>{failed})
        << row.name;
    EXPECT_EQ(journey.text("power_system"), row.understood ? "1P3W" : "3P4W") << row.name;
    faults() = {};
    journey.companion->click("get_hz");
    EXPECT_EQ(journey.text("power_system"), "3P4W") << row.name;
    expect_resumes(row.name);
  }
}

TEST(Midnight, EveryWaitEndsAndReadingsGoOn) {
  // Midnight falls into the wait after opening, the splash, the yielding second, the reply, the resume and
  // the poll.
  for (const double before_midnight_s : {0.5, 2.0, 4.5, 6.0, 9.5, 10.5, 11.3, 12.7}) {
    Journey journey(86400 - before_midnight_s);
    journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
    journey.start_on_port(1);
    EXPECT_LT(journey.world.clock.monotonic_s(), 11.2 + 5.1) << before_midnight_s;
    journey.world.run_for(10);
    EXPECT_EQ(journey.text("V1_value"), "230.1V") << before_midnight_s;
    EXPECT_EQ(journey.text("PQA_mode"), "Power Mode") << before_midnight_s;
    EXPECT_EQ(journey.text("Label1_5"), "11/23/2026") << "the date follows the sample clock";
    EXPECT_EQ(journey.text("Label1_3").substr(0, 5), "00:00") << before_midnight_s;
    EXPECT_EQ(journey.world.dialogs.message_texts().size(), 0u) << before_midnight_s;
  }
}

TEST(LongRun, AnHourOfPollingKeepsTheBuffersEmptyAndMissesNothing) {
  Journey journey;
  journey.start_on_port(1);
  const double from_s = journey.world.clock.monotonic_s();
  journey.world.run_for(3600);
  EXPECT_LT(journey.program().link.poll_buffer.size(), 200u);
  EXPECT_GT(journey.received(from_s).size(), 3600u * 3);
  const double instants = journey.program().readings.demand_samples;
  EXPECT_LE(instants, 450) << "a demand period of 15 minutes has 450 samples of 2 s";
  EXPECT_NE(journey.text("W_MD_value"), "------");
}

#ifdef __GLIBC__
// The simulated meter's log fills up in the first hours; after that nothing may grow.
TEST(LongRun, MemoryDoesNotGrow) {
  Journey journey;
  journey.start_on_port(1);
  journey.world.run_for(8 * 3600);
  const auto before = mallinfo2().uordblks;
  journey.world.run_for(3600);
  EXPECT_LT(mallinfo2().uordblks, before + 64 * 1024);
}
#endif

}  // namespace
}  // namespace halden
