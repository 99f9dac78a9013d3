// The world, the clock and the timers together: what happens while a handler waits.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <ctime>
#include <string>
#include <vector>

#include "platform/program_end.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/core/steady_time.h"
#include "qt_events.h"

namespace halden {
namespace {

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
    timer->set_period_ms(100);
    timer->set_enabled(true);
  }
  began_s = steady_s();
  world_.run([&] {
    const std::clock_t began = std::clock();
    wait(Yield::no, 0.55);
    EXPECT_LT(static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC, 0.15);
    EXPECT_EQ(kept_s.size(), 0u);
    dropped.set_enabled(false);
    dropped.set_period_ms(10000);
    dropped.set_enabled(true);
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
  for (QtTimer* timer : {&timer1, &timer2}) {
    timer->set_period_ms(20);
    timer->set_enabled(true);
  }
  ASSERT_TRUE(run_events_until([&] { return ticks2 >= 2; }));
  EXPECT_GE(ticks1_inside, 2);
}

// A click inside a yielding wait ends the program: both handlers unwind, inner first, then the loop is left.
TEST_F(QtWaitTest, NestedHandlersUnwindBeforeTheLoopIsLeft) {
  std::string log;
  struct Unwound {
    std::string& log;
    const char* name;
    ~Unwound() { log += name; }
  };
  world_.on_end([&] { log += "windows "; });
  world_.on_end([&] { log += "files "; });
  world_.add_mirror([&] { log += world_.ending() ? "mirror-too-late " : ""; });
  QtTimer timer(world_);
  timer.set_period_ms(1);
  timer.on_tick([&] { log += world_.ending() ? "tick-too-late " : ""; });
  timer.set_enabled(true);
  const auto click = [&] {
    const Unwound inner{log, "inner "};
    world_.end_program();
    world_.end_program();
    log += "ending ";
    clock_.pause(Yield::yes, 1.0);
    log += "went-on ";
  };
  const auto handler = [&] {
    const Unwound outer{log, "outer "};
    post([&] { world_.run(click); });
    wait(Yield::yes, 5.0);
    log += "went-on ";
  };
  post([&] { world_.run(handler); });
  QTimer::singleShot(10000, &world_, [] { QCoreApplication::exit(1); });
  EXPECT_EQ(QCoreApplication::exec(), 0);
  EXPECT_EQ(log, "windows files ending inner outer ");
  EXPECT_FALSE(world_.run([&] { log += "ran-after-the-end "; }));
  EXPECT_THROW(clock_.pause(Yield::no, 0.0), ProgramEnded);
  EXPECT_EQ(log, "windows files ending inner outer ");
}

TEST_F(QtWaitTest, AProgramThatEndsBeforeTheLoopStartsLeavesItAtOnce) {
  world_.end_program();
  QTimer::singleShot(10000, &world_, [] { QCoreApplication::exit(1); });
  EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST(QtClockDate, TheYearOfADateFormatGetsFourDigits) {
  const std::pair<const char*, const char*> rows[] = {
      {"M/d/yy", "M/d/yyyy"},       {"yy-MM-dd", "yyyy-MM-dd"}, {"yyyy/M/d", "yyyy/M/d"}, {"", ""},
      {"d 'yy' yy", "d 'yy' yyyy"}, {"d ''yy", "d ''yyyy"}};
  for (const auto& [format, expected] : rows)
    EXPECT_EQ(with_four_digit_year(QLatin1String(format)).toStdString(), expected);
}

TEST(QtClockDate, AgreesWithTheComputersCalendar) {
  QtWorld world;
  const QtClock clock(world);
  std::time_t before = 0;
  Date today;
  std::string text;
  double seconds = 0;
  do {  // once more when a second, and perhaps a day, ends in between
    before = std::time(nullptr);
    today = clock.today();
    text = clock.short_date();
    seconds = clock.seconds_since_midnight();
  } while (std::time(nullptr) != before);
  const std::tm local = *std::localtime(&before);
  EXPECT_EQ(today, (Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}));
  EXPECT_NE(text.find(std::to_string(local.tm_year + 1900)), std::string::npos) << text;
  EXPECT_NEAR(seconds, local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec, 1.0);
}

}  // namespace
}  // namespace halden
