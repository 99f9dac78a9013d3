#include <algorithm>
#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "program_test_base.h"

namespace halden {
namespace {

using simulator::Faults;

using Texts = std::vector<std::string>;

struct Linked : testing::Test, Journey {
  Linked() {
    fix_worked_load();
    start_on_port(1);
    world.run_for(2);
  }

  // The panels are brought to another load, so that a test sees whether new frames arrive.
  void expect_resumes(const std::string& after) {
    fix_phase(1, {2200, 12340, 2781, 0, 116});
    const auto resumed = [this] {
      return text("V1_value") == "220.0V" && program().link.state.link_lost == 0;
    };
    EXPECT_TRUE(world.run_until(resumed, 12)) << after;
    fix_phase(1, {2301, 12340, 2781, 0, 116});
    EXPECT_TRUE(world.run_until([this] { return text("V1_value") == "230.1V"; }, 12)) << after;
  }

  Faults& faults() { return meter.faults(); }
};

TEST_F(Linked, ALostLinkIsShownAndReadingsResumeByThemselves) {
  faults().silence = true;
  ASSERT_TRUE(world.run_until([this] { return window()["Warning"].visible; }, 6));
  EXPECT_TRUE(
      world.run_until([this] { return text("status_link").starts_with("no answer since 12:00:1"); }, 1));
  EXPECT_EQ(text("V1_value"), "230.1V") << "the last reading stays";
  EXPECT_TRUE(window()["V1_value"].old) << "and looks old";
  EXPECT_TRUE(window("PhasorForm")["angle_v1v2"].old) << "in both windows";
  EXPECT_EQ(window()["W_sys_value"].description, "not current");
  for (int second = 0; second < 60; ++second) {
    world.run_for(1);
    EXPECT_TRUE(window()["Warning"].visible) << "as long as the link is lost";
  }
  EXPECT_EQ(world.dialogs.message_texts().size(), 0u) << "never a box";
  faults().silence = false;
  expect_resumes("silence");
  EXPECT_FALSE(window()["V1_value"].old);
  EXPECT_FALSE(window("PhasorForm")["angle_v1v2"].old);
  EXPECT_EQ(window()["W_sys_value"].description, "");
  world.run_for(1);
  EXPECT_FALSE(window()["Warning"].visible);
  EXPECT_EQ(text("status_link"), "linked");
}

// A click that lands in a tick of a lost link: polling and its warning go on under the message it leads to.
TEST_F(Linked, PollingGoesOnUnderTheMessageOfAFailedQuery) {
  faults().silence = true;
  ASSERT_TRUE(world.run_until([this] { return program().link.state.missed_polls == 16; }, 10));
  click_after(0.249, "get_hz");
  std::size_t requests = 0;
  world.dialogs.while_open = [&](const Message&) {
    const double from_s = now_s();
    world.run_for(5);
    requests = received(from_s + 0.001).size();
  };
  world.run_for(20);
  EXPECT_EQ(world.dialogs.messages.size(), 1u);
  EXPECT_GE(requests, 4u) << "a request a second";
}

TEST_F(Linked, AnAdapterPulledAndPutBackIsNoticedAndForgiven) {
  port.unplug();
  world.run_for(1);
  EXPECT_EQ(text("status_link"), "adapter gone, waiting for it");
  world.run_for(30);
  port.plug_in();
  expect_resumes("unplugged while polling");

  // In the middle of a frame: 20 ms latency, then 166 ms on the line.
  ASSERT_TRUE(world.run_until([this] { return meter.output_waiting(now_s()) > 40; }, 2));
  port.unplug();
  world.run_for(3);
  port.plug_in();
  expect_resumes("unplugged in the middle of a frame");
  EXPECT_EQ(world.dialogs.message_texts(), Texts{});

  click_after(0, "get_hz");
  world.user_does(3.5, [this] { port.unplug(); });
  world.run_for(15);
  EXPECT_EQ(world.dialogs.message_texts(), Texts{status_failed});
  EXPECT_EQ(text("ct_value"), "1") << "what was known stays";
  port.plug_in();
  expect_resumes("unplugged during a status query");
}

TEST_F(Linked, SpoiledFramesAreSurvivedAndTheNextGoodOnesShown) {
  const std::pair<const char*, void (*)(Faults&)> rows[] = {
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
  for (const auto& [name, spoil] : rows) {
    spoil(faults());
    world.run_for(20);
    EXPECT_LE(program().link.state.poll_buffer.size(), live_buffer_limit) << name;
    faults() = {};
    expect_resumes(name);
  }
  EXPECT_EQ(world.dialogs.message_texts().size(), 0u);
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
    EXPECT_EQ(values("VAR3 W_sys"), "-0.768KVAR|8.338KW|") << after;
  }
}

// A frame broken off in the middle and asked for again: its head must not lend its values to the next one.
TEST_F(Linked, TheHeadOfACutFrameDoesNotMixWithTheNextFrame) {
  for (const std::size_t cut : {12u, 24u, 25u, 35u, 46u, 50u}) {
    fix_phase(1, {1999, 19999, 1999, 0, 99});
    faults().cut_after = cut;
    world.run_for(0.5);
    fix_phase(1, {2301, 12340, 2781, 0, 116});
    faults() = {};
    for (int n = 0; n < 30; ++n) {
      world.run_for(0.1);
      const std::string shown = values("V1 I1 W1 Phase1");
      EXPECT_TRUE(shown == "230.1V|12.34A|2.781KW|-011.6|" || shown == "199.9V|19.99A|1.999KW|-009.9|")
          << shown << " after a cut at " << cut;
    }
  }
}

// A frame too many must not keep all later readings one frame behind.
TEST_F(Linked, SurplusFramesLeaveNoLagBehind) {
  faults().late_s = 1.7;  // the request is repeated meanwhile, so one frame too many comes
  world.run_for(3);
  faults() = {};
  faults().doubled = true;
  world.run_for(10);
  faults() = {};
  world.run_for(5);
  fix_phase(1, {2200, 12340, 2781, 0, 116});
  world.run_for(1.1);
  EXPECT_EQ(text("V1_value"), "220.0V");
  EXPECT_LT(program().link.state.poll_buffer.size(), 160u);
}

TEST_F(Linked, ASpoiledStatusReplyIsReportedOrReadAsFarAsItGoes) {
  std::string fields;
  for (int n = 0; n < 26; ++n) fields += "00001 ";  // 156 characters
  const std::tuple<const char*, std::string, bool> rows[] = {
      {"nothing", "", false},
      {"only a mark", "E", false},
      {"letters in the fields", "E" + fields + std::string(40, 'x') + " ", true},
      {"no field at all", "E" + std::string(200, 'x'), false},
      {"8-bit noise", "E" + std::string(300, '\xEE'), false},
      {"zero bytes", std::string(300, '\0'), false}};
  for (const auto& [name, reply, understood] : rows) {
    faults().status_reply = reply;
    world.dialogs.messages.clear();
    click("get_hz");
    EXPECT_EQ(world.dialogs.message_texts(), understood ? Texts{} : Texts{status_failed}) << name;
    EXPECT_EQ(text("power_system"), understood ? "1P3W" : "3P4W") << name;
    faults() = {};
    click("get_hz");
    expect_resumes(name);
  }
  faults().endless_stream = true;
  const double from_s = now_s();
  click("get_hz");
  EXPECT_LT(now_s() - from_s, 30) << "an endless stream";
  faults() = {};
  expect_resumes("an endless stream");
}

TEST(Midnight, EveryWaitEndsAndReadingsGoOn) {
  // Midnight falls into the wait after opening, the splash, the yielding second, the reply, the resume and
  // the poll.
  for (const double before_midnight_s : {0.5, 2.0, 4.5, 6.0, 9.5, 10.5, 11.3, 12.7}) {
    Journey journey(86400 - before_midnight_s);
    journey.fix_phase(1, {2301, 12340, 2781, 0, 116});
    journey.start_on_port(1);
    EXPECT_LT(journey.now_s(), 11.2 + 5.1) << before_midnight_s;
    journey.world.run_for(10);
    EXPECT_EQ(journey.text("V1_value"), "230.1V") << before_midnight_s;
    EXPECT_EQ(journey.text("PQA_mode"), "Power Mode") << before_midnight_s;
    EXPECT_EQ(journey.text("Label1_5"), "11/23/2026") << "the date follows the sample clock";
    EXPECT_EQ(journey.text("Label1_3").substr(0, 5), "00:00") << before_midnight_s;
    EXPECT_EQ(journey.world.dialogs.message_texts().size(), 0u) << before_midnight_s;
  }
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
