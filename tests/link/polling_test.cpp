#include "link/polling.h"

#include <gtest/gtest.h>

#include "link/exchange_gate.h"
#include "link/live_poll.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"
#include "screen/meter_rec/main_window.h"

namespace halden {
namespace {

struct PollingTest : testing::Test {
  PollingTest() { port.open(1); }

  std::string sent_text() const {
    std::string text;
    for (const ScriptedPort::Sent& sent : port.sent) text += sent.bytes;
    return text;
  }

  VirtualWorld world;
  ScriptedPort port{world};
  LinkState state;
  Waits waits{world.clock, port};
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
    const char* name;
    std::int16_t flag, port_ready, logger_active;
  };
  for (const Case& row : {Case{"stopped", 0, 1, 0}, Case{"no port", 1, 0, 0}, Case{"download all", 1, 1, 1},
                          Case{"odd flag", 2, 1, 0}}) {
    world.timer1.set_enabled(true);
    world.timer2.set_enabled(true);
    state.port_ready = row.port_ready;
    state.logger_active = row.logger_active;
    state.missed_polls = 5;
    polling.resume_polling(row.flag);
    EXPECT_FALSE(world.timer1.enabled() || world.timer2.enabled()) << row.name;
    EXPECT_EQ(state.missed_polls, 0) << row.name;
    EXPECT_EQ(sent_text(), "") << row.name;
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
  void frame_complete() override { ++frames; }
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
  struct Case {
    std::int16_t mode;
    std::string buffer;
    bool complete;
  };
  const std::vector<Case> cases = {{power_view, std::string(50, 'x'), false},
                                   {power_view, std::string(51, 'x'), true},
                                   {harmonics_view, b1872e, true},
                                   {harmonics_view, b1872e.substr(1), false},
                                   {harmonics_view, std::string(3000, 'B'), false},
                                   {harmonics_view, std::string(3000, 'E'), false},
                                   {waveform_view, "B" + std::string(2106, '\0') + "E", true},
                                   {waveform_view, "B" + std::string(2105, '\0') + "E", false},
                                   {waveform_view, std::string(3000, '\xFF'), false}};
  for (const Case& row : cases) {
    LinkState at;
    at.display_mode = row.mode;
    (row.mode == waveform_view ? at.wave_buffer : at.poll_buffer) = row.buffer;
    EXPECT_EQ(frame_is_complete(at), row.complete) << row.mode << " with " << row.buffer.size();
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
