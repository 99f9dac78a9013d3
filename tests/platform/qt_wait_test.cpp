// The world, the clock and the timers together: what happens while a handler waits.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScopeGuard>
#include <ctime>
#include <string>
#include <vector>

#include "platform/program_end.h"
#include "platform/qt/core/numeric_date.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/core/steady_time.h"
#include "platform/timer_schedule.h"
#include "qt_events.h"

namespace halden {
namespace {

// Every 250 ms from 1 ms on. The second column: when the next tick is due after one was taken, or nothing.
TEST(TimerSchedule, LateTicksStayOnTheGridAndOneFollowsALongHold) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  schedule.set_enabled(true, 1000);
  const std::pair<std::int64_t, std::int64_t> rows[] = {
      {250999, 0},        {251000, 501000},   {251000, 0},
      {504000, 751000},                                            // 3 ms late, again and again
      {754000, 1001000},  {1000999, 0},       {1004000, 1251000},  // on the grid all the same
      {1254000, 1501000}, {1760000, 2001000}, {1760000, 0},        // more than a period late
      {3251000, 3501000}, {3251000, 0}};  // the sixth grid point itself counts as passed
  for (const auto& [now_us, next_us] : rows) {
    const bool due = schedule.take_due(now_us);
    EXPECT_EQ(due ? schedule.due_us() : 0, next_us) << now_us;
  }
}

TEST(TimerSchedule, SwitchingOnAndANewPeriodStartAFullPeriod) {
  TimerSchedule schedule;
  schedule.set_period_ms(250, 0);
  EXPECT_FALSE(schedule.take_due(10000000));
  schedule.set_enabled(true, 10000000);
  schedule.set_enabled(true, 10100000);  // is on already
  EXPECT_EQ(schedule.due_us(), 10250000);
  schedule.set_period_ms(1000, 10200000);
  EXPECT_EQ(schedule.due_us(), 11200000);
  schedule.set_enabled(false, 12000000);  // drops the tick that is due
  schedule.set_enabled(true, 12000000);
  EXPECT_EQ(schedule.due_us(), 13000000);
  schedule.set_period_ms(-5, 0);
  EXPECT_EQ(schedule.period_ms(), 1);
}

class QtWaitTest : public testing::Test {
 protected:
  void wait(Yield yield, double duration_s) {
    const double end_s = clock_.monotonic_s() + duration_s;
    while (clock_.monotonic_s() < end_s) clock_.pause(yield, end_s - clock_.monotonic_s());
  }

  // Runs `event` from the event loop, as soon as somebody runs one.
  template <typename Event>
  void post(Event event) {
    QMetaObject::invokeMethod(&world_, event, Qt::QueuedConnection);
  }

  void expect_loop_left() {
    QTimer::singleShot(10000, &world_, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
  }

  static void start(QtTimer& timer, int period_ms) {
    timer.set_period_ms(period_ms);
    timer.set_enabled(true);
  }

  QtWorld world_;
  QtClock clock_{world_};
};

TEST_F(QtWaitTest, APauseOfNothingTakesNoTurn) {
  const double began_s = clock_.monotonic_s();
  for (int i = 0; i < 100; ++i) clock_.pause(Yield::yes, i % 2 == 0 ? 0.0 : -1.0);
  EXPECT_LT(clock_.monotonic_s() - began_s, 0.25);  // 100 full turns would take 0.5 s
}

// A mirror shows a window, which calls a handler, which changes a value: it must be shown, without endless
// nesting.
TEST_F(QtWaitTest, MirrorsFollowHandlersEveryTurnAndWhatTheyCauseThemselves) {
  int value = 0;
  int depth = 0;
  std::vector<int> shown;
  world_.add_mirror([&] {
    EXPECT_EQ(++depth, 1);
    shown.push_back(value);
    if (value == 3) world_.run([&] { value = 4; });
    --depth;
  });
  world_.run([&] {
    value = 1;
    clock_.pause(Yield::yes, 0.0);
    value = 2;
    clock_.pause(Yield::no, 0.0);
    value = 3;
  });
  EXPECT_EQ(shown, (std::vector<int>{1, 2, 3, 4}));
}

// The click comes in a held turn behind an event that waited in it itself.
TEST_F(QtWaitTest, WhatTheUserStartsInAHeldWaitRunsOnceItIsOver) {
  std::string order;
  const auto click = [&] { world_.run_input([&] { order += world_.holding() ? "held " : "click "; }); };
  world_.run([&] {
    post([&] {
      clock_.pause(Yield::no, 0.0);
      click();
    });
    clock_.run_later([&] { order += "later "; });
    wait(Yield::no, 0.05);
    order += "waited ";
    clock_.pause(Yield::yes, 0.0);
    clock_.pause(Yield::yes, 0.0);
    order += "yielded ";
  });
  EXPECT_EQ(order, "waited click later yielded ");
  click();
  EXPECT_EQ(order, "waited click later yielded click ");
}

// Ticks held over come as one when the handler lets events through, and not at all after switching off.
TEST_F(QtWaitTest, AHeldTickCostsLittleAndComesWithTheNextYieldUnlessSwitchedOff) {
  QtTimer kept(world_);
  QtTimer dropped(world_);
  std::vector<double> kept_s;
  double began_s = 0;
  kept.on_tick([&] { kept_s.push_back(steady_s() - began_s); });
  dropped.on_tick([] { FAIL(); });
  for (QtTimer* timer : {&kept, &dropped}) {
    timer->set_period_ms(1000);
    start(*timer, 100);
  }
  began_s = steady_s();
  world_.run([&] {
    const std::clock_t began = std::clock();
    wait(Yield::no, 0.55);
    EXPECT_LT(static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC, 0.15);
    EXPECT_EQ(kept_s.size(), 0u);
    dropped.set_enabled(false);
    start(dropped, 10000);
    clock_.pause(Yield::yes, 0.0);
    clock_.pause(Yield::yes, 0.0);
    EXPECT_EQ(kept_s.size(), 1u);
  });
  ASSERT_TRUE(run_events_until([&] { return kept_s.size() >= 2; }));
  EXPECT_GE(kept_s[1], 0.599);
}

TEST_F(QtWaitTest, ATickNeverRunsInsideItselfButInsideTheOthers) {
  QtTimer timer1(world_);
  QtTimer timer2(world_);
  bool in_tick2 = false;
  int ticks1_inside = 0;
  int ticks2 = 0;
  timer1.on_tick([&] { ticks1_inside += in_tick2 ? 1 : 0; });
  timer2.on_tick([&] {
    EXPECT_FALSE(in_tick2);
    in_tick2 = true;
    timer2.set_enabled(true);  // as a handler does that stops and resumes polling
    wait(Yield::yes, 0.1);
    in_tick2 = false;
    ++ticks2;
  });
  for (QtTimer* timer : {&timer1, &timer2}) start(*timer, 20);
  ASSERT_TRUE(run_events_until([&] { return ticks2 >= 2; }));
  EXPECT_GE(ticks1_inside, 2);
}

// A click inside a yielding wait ends the program: both handlers unwind, inner first, then the loop is left.
TEST_F(QtWaitTest, NestedHandlersUnwindBeforeTheLoopIsLeft) {
  std::string log;
  world_.on_end([&] { log += "windows "; });
  world_.on_end([&] { log += "files "; });
  world_.add_mirror([&] { log += world_.ending() ? "mirror-too-late " : ""; });
  QtTimer timer(world_);
  timer.on_tick([&] { log += world_.ending() ? "tick-too-late " : ""; });
  start(timer, 1);
  const auto click = [&] {
    const auto unwound = qScopeGuard([&] { log += "inner "; });
    world_.end_program();
    world_.end_program();
    log += "ending ";
    clock_.pause(Yield::yes, 1.0);
    log += "went-on ";
  };
  const auto handler = [&] {
    const auto unwound = qScopeGuard([&] { log += "outer "; });
    post([&] { world_.run(click); });
    wait(Yield::yes, 5.0);
    log += "went-on ";
  };
  post([&] { world_.run(handler); });
  expect_loop_left();
  EXPECT_FALSE(world_.run([&] { log += "ran-after-the-end "; }));
  EXPECT_THROW(clock_.pause(Yield::no, 0.0), ProgramEnded);
  EXPECT_EQ(log, "windows files ending inner outer ");
}

TEST_F(QtWaitTest, AProgramThatEndsBeforeTheLoopStartsLeavesItAtOnce) {
  world_.end_program();
  expect_loop_left();
}

// The time is read again when a second, and perhaps a day, ended meanwhile.
TEST_F(QtWaitTest, TheDateIsThatOfTheComputer) {
  std::time_t now = 0;
  Date today;
  std::string text;
  double seconds = 0;
  do {
    now = std::time(nullptr);
    today = clock_.today();
    text = clock_.short_date();
    seconds = clock_.seconds_since_midnight();
  } while (std::time(nullptr) != now);
  const std::tm local = *std::localtime(&now);
  EXPECT_EQ(today, (Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}));
  EXPECT_EQ(text.size(), 10U) << text;
  EXPECT_EQ(text.find_first_not_of("0123456789/-."), std::string::npos) << text;
  EXPECT_NE(text.find(std::to_string(today.year)), std::string::npos) << text;
  EXPECT_NEAR(seconds, local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec, 1.0);
}

// Under the C locale it was "15 Mar 2024", and a record's field of ten characters lost the 1.
TEST(NumericDate, HasTenCharactersInTheOrderOfTheDesktop) {
  const std::pair<const char*, const char*> rows[] = {{"M/d/yy", "03/05/2024"},
                                                      {"dd.MM.yyyy", "05.03.2024"},
                                                      {"d. M. yyyy", "05.03.2024"},
                                                      {"yyyy. MM. dd.", "2024.03.05"},
                                                      {"yyyy/M/d", "2024/03/05"},
                                                      {"dd-MM-yy", "05-03-2024"},
                                                      {"d MMM yyyy", "2024-03-05"},
                                                      {"d MMMM, yy", "2024-03-05"},
                                                      {"d\u200f/M\u200f/yyyy", "05/03/2024"},
                                                      {"yyyy\u5e74M\u6708d\u65e5", "2024-03-05"},
                                                      {"d.MM.yy '\u0433.'", "05.03.2024"},
                                                      {"'d/M' d-M-y", "05-03-2024"},
                                                      {"d ''M'' y", "05-03-2024"},
                                                      {"ddd, M/d/y", "03/05/2024"},
                                                      {"M/d", "2024-03-05"},
                                                      {"", "2024-03-05"}};
  for (const auto& [format, text] : rows) EXPECT_EQ(numeric_date({2024, 3, 5}, format), text) << format;
  EXPECT_EQ(numeric_date({2026, 11, 23}, "M/d/yy"), "11/23/2026");
}

}  // namespace
}  // namespace halden
