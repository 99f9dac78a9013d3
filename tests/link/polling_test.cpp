// Waits, polling and exchanges against a port that plays a script.
#include "link/polling.h"

#include <gtest/gtest.h>

#include "link/exchange_gate.h"
#include "link/live_poll.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"
#include "screen/meter_rec/main_window.h"

namespace halden {
namespace {

constexpr double turn_s = 0.006;  // a wait may end one turn late

struct WaitsTest : testing::Test {
  WaitsTest() { port.open(1); }

  double seconds_for(const std::function<void()>& work) {
    const double start = world.clock.monotonic_s();
    work();
    return world.clock.monotonic_s() - start;
  }

  VirtualWorld world;
  ScriptedPort port{world};
  Waits waits{world.clock, port};
};

TEST_F(WaitsTest, AClockSetBackDoesNotPinAWait) {
  world.user_does(0.4, [&] { world.set_clock_forward(-3600); });
  EXPECT_NEAR(seconds_for([&] { waits.timed_wait(1, Yield::yes); }), 1.4, turn_s);
}

TEST_F(WaitsTest, BuffersStayBoundedUnderAFlood) {
  port.arrive(0, std::string(1'000'000, 'x'));
  std::string live;
  waits.drain(live);
  EXPECT_EQ(live.size(), live_buffer_limit);
  port.arrive(0, "E" + std::string(1'000'000, 'x'));
  std::string reply;
  waits.collect(1, reply);
  EXPECT_EQ(reply.size(), reply_buffer_limit);
  EXPECT_EQ(reply.front(), 'E') << "a reply keeps its beginning";
}

TEST_F(WaitsTest, DrainingEndsWhenNothingMoreArrives) {
  std::string buffer;
  EXPECT_EQ(seconds_for([&] { waits.drain_while_arriving(0.2, buffer); }), 0) << "nothing is waiting";
  port.arrive(0, "a");
  port.arrive(0.15, "b");
  port.arrive(0.5, "too late");
  EXPECT_NEAR(seconds_for([&] { waits.drain_while_arriving(0.2, buffer); }), 0.2, turn_s);
  EXPECT_EQ(buffer, "ab");
}

// Something that sends so fast that more has always arrived by the time one looks again.
struct FloodingPort : ScriptedPort {
  using ScriptedPort::ScriptedPort;
  std::string receive() override { return std::string(count += 4, 'x'); }
  std::size_t received_count() override { return count += 4; }
  std::size_t count = 0;
};

TEST_F(WaitsTest, AFloodIsWaitedForSixSecondsAndSilenceHalfASecond) {
  EXPECT_NEAR(seconds_for([&] { waits.wait_until_quiet(); }), 0.5, turn_s);
  FloodingPort flood(world);
  Waits flooded(world.clock, flood);
  std::string buffer(live_buffer_limit, 'x');
  EXPECT_NEAR(seconds_for([&] { flooded.drain_while_arriving(0.2, buffer); }), 6, 0.2 + turn_s);
  EXPECT_EQ(flooded.last_arrival_s(), world.clock.monotonic_s()) << "a flood is no silence";
  EXPECT_NEAR(seconds_for([&] { flooded.wait_until_quiet(); }), 6, 0.5 + turn_s);
}

struct PollingTest : WaitsTest {
  std::string sent_text() const {
    std::string text;
    for (const ScriptedPort::Sent& sent : port.sent) text += sent.bytes;
    return text;
  }

  LinkState state;
  Polling polling{world.platform(port), waits, state};
};

TEST_F(PollingTest, ResumingWaitsASecondThrowsInputAwayAndAsks) {
  state.port_ready = 1;
  state.missed_polls = 9;
  state.poll_buffer = "V1=  23";
  port.arrive(0.5, "left over");
  polling.resume_polling(1);
  EXPECT_EQ(sent_text(), " ");
  EXPECT_NEAR(port.sent[0].time_s, 1.0, 0.006);
  EXPECT_TRUE(world.timer1.enabled() && world.timer2.enabled());
  EXPECT_EQ(state.missed_polls, 0);
  EXPECT_EQ(port.received_count(), 0u);
  EXPECT_EQ(state.poll_buffer, "") << "half a frame from before must not begin the next one";
  state.display_mode = waveform_view;
  polling.resume_polling(1);
  EXPECT_EQ(sent_text(), " W");
}

TEST_F(PollingTest, PollingStaysOffWithoutPortDuringDownloadAllAndWhenStopped) {
  struct Case {
    std::int16_t flag, port_ready, logger_active;
  };
  for (const Case& row : {Case{0, 1, 0}, {1, 0, 0}, {1, 1, 1}}) {
    world.timer1.set_enabled(true);
    world.timer2.set_enabled(true);
    state.port_ready = row.port_ready;
    state.logger_active = row.logger_active;
    polling.resume_polling(row.flag);
    EXPECT_FALSE(world.timer1.enabled() || world.timer2.enabled());
    EXPECT_EQ(sent_text(), "");
  }
}

TEST_F(PollingTest, TheLiveTimerFollowsTheView) {
  for (const auto& [view, period_ms] :
       {std::pair(waveform_view, 1000), {std::int16_t{5}, 1000}, {power_view, 250}}) {
    state.display_mode = view;
    polling.set_live_timer();
    EXPECT_EQ(world.timer2.period_ms(), period_ms) << view;
  }
  EXPECT_EQ(sent_text(), "");
  EXPECT_EQ(world.clock.monotonic_s(), 0) << "these two do not wait";
  state.display_mode = harmonics_view;
  port.arrive(0.5, "an old frame");
  polling.set_live_timer();
  EXPECT_NEAR(world.clock.monotonic_s(), 1.0, 0.006);
  EXPECT_EQ(sent_text(), " ");
  EXPECT_EQ(state.poll_buffer, "");
}

struct Recorded : LiveFrames {
  FrameOutcome take_frame() override {
    ++frames;
    return outcome;
  }
  FrameOutcome outcome = FrameOutcome::complete;
  void no_communication() override { ++lost; }
  int frames = 0;
  int lost = 0;
};

struct LivePollTest : PollingTest {
  Window meter_rec = make_main_window();
  Recorded views;
  LivePoll poll{world.platform(port), waits, polling, state, meter_rec, views};
};

TEST_F(LivePollTest, KnowsACompleteFrame) {
  const std::string b1872e = "B" + std::string(1872, '0') + "E";
  const std::tuple<std::int16_t, std::string, bool> cases[] = {
      {power_view, std::string(50, 'x'), false},
      {power_view, std::string(51, 'x'), true},
      {harmonics_view, b1872e, true},
      {harmonics_view, b1872e.substr(1), false},
      {harmonics_view, std::string(3000, 'B'), false},
      {harmonics_view, std::string(3000, 'E'), false},
      {waveform_view, "B" + std::string(2106, '\0') + "E", true},
      {waveform_view, "B" + std::string(2105, '\0') + "E", false},
      {waveform_view, std::string(3000, '\xFF'), false}};
  for (const auto& [mode, buffer, complete] : cases) {
    LinkState at;
    at.display_mode = mode;
    (mode == waveform_view ? at.wave_buffer : at.poll_buffer) = buffer;
    EXPECT_EQ(frame_is_complete(at), complete) << mode << " with " << buffer.size();
  }
}

TEST_F(LivePollTest, ASilentMeterIsAskedAgainEveryFourthTickAndGivenUpAfterTwentyUntilItAnswers) {
  std::string requests;
  for (int tick = 1; tick <= 21; ++tick) {
    port.sent.clear();
    port.arrive(0, "x");
    poll.tick();
    requests += std::to_string(tick) + ":" + sent_text() + ";";
    EXPECT_EQ(meter_rec["Warning"].visible, tick >= 17) << tick;
    EXPECT_EQ(state.link_lost, tick >= 17 ? 1 : 0) << tick;
    EXPECT_EQ(views.lost, std::max(0, tick - 16)) << tick;
    EXPECT_EQ(world.shell.beeps, tick == 21 ? 1 : 0) << tick;
    EXPECT_EQ(state.missed_polls, tick == 21 ? 0 : tick);
  }
  EXPECT_EQ(requests, "1:;2:;3:;4: ;5:;6:;7:;8: ;9:;10:;11:;12: ;13:;14:;15:;16: ;17:;18:;19:;20: ;21: ;");
  EXPECT_EQ(state.poll_buffer, "") << "given up: what had gathered is dropped";
  EXPECT_EQ(views.frames, 0);
  poll.tick();
  port.arrive(0, std::string(51, 'x'));
  poll.tick();
  EXPECT_EQ(views.frames, 1);
  EXPECT_EQ(state.missed_polls, 0);
  EXPECT_EQ(state.link_lost, 0);
}

// Noise and damaged frames count as missed; a damaged one has been asked for again already. A discarded one
// empties the buffer: the first tick asks anew, the sixteen after it are missed, every fourth asks again.
TEST_F(LivePollTest, OnlyWholeFramesEndTheCountOfMissedTicks) {
  const std::tuple<FrameOutcome, int, const char*> rows[] = {{FrameOutcome::incomplete, 17, "    "},
                                                             {FrameOutcome::damaged, 17, ""},
                                                             {FrameOutcome::discarded, 16, "     "},
                                                             {FrameOutcome::other_mode, 3, ""},
                                                             {FrameOutcome::other_mode_arriving, 17, "    "}};
  for (const auto& [outcome, missed, requests] : rows) {
    state.missed_polls = state.link_lost = 0;
    port.sent.clear();
    views.outcome = outcome;
    state.poll_buffer = std::string(51, 'x');
    for (int tick = 1; tick <= 17; ++tick) poll.tick();
    EXPECT_EQ(state.missed_polls, missed);
    EXPECT_EQ(state.link_lost, missed == 17 ? 1 : 0);
    EXPECT_EQ(sent_text(), requests) << missed;
  }
}

// A request into a long frame that is still arriving would start it anew. A full buffer receives, too.
TEST_F(LivePollTest, NothingIsRequestedInsideAFrame) {
  for (const auto& [outcome, missed, held] :
       {std::tuple(FrameOutcome::other_mode_arriving, 0, std::size_t{51}),
        {FrameOutcome::incomplete, 8, std::size_t{51}},
        {FrameOutcome::incomplete, 8, live_buffer_limit}}) {
    state.missed_polls = 0;
    state.poll_buffer = std::string(held, 'x');
    views.outcome = outcome;
    for (int tick = 1; tick <= 8; ++tick) {
      port.arrive(0, "x");
      poll.tick();
    }
    EXPECT_EQ(state.missed_polls, missed);
    EXPECT_EQ(sent_text(), "");
  }
}

TEST(ExchangeGateTest, AClickDuringAnExchangeRunsOnceAfterIt) {
  VirtualWorld world;
  ExchangeGate gate(world.clock);
  std::string order;
  gate.run("first", [&] {
    order += "1(";
    gate.run("second", [&] { order += "2"; });
    gate.run("third", [&] {
      order += "3";
      gate.run("second", [&] { order += "4"; });
    });
    gate.run("second", [&] { order += "never"; });
    order += ")";
  });
  EXPECT_EQ(order, "1()234");
  EXPECT_FALSE(gate.busy());
}

TEST(ExchangeGateTest, ATickHoldsClicksBackButRunsInsideAnExchange) {
  VirtualWorld world;
  ExchangeGate gate(world.clock);
  std::string order;
  gate.run_tick([&] {
    gate.run("click", [&] { order += "click"; });
    gate.run_tick([&] { order += "inner "; });
    order += "tick ";
  });
  EXPECT_EQ(order, "inner tick ");
  world.run_for(0);
  EXPECT_EQ(order, "inner tick click") << "in a handler of its own";
}

}  // namespace
}  // namespace halden
