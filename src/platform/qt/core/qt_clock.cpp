#include "platform/qt/core/qt_clock.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QThread>
#include <QTime>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "platform/program_end.h"
#include "platform/qt/core/numeric_date.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/core/steady_time.h"

namespace halden {

namespace {

// The time between two checks for events: short compared with the shortest wait (0.1 s), long compared with
// the cost of a check.
constexpr double turn_s = 0.005;

// A turn goes on while events cause new events (a timer that posts one, for example), at most for this time.
constexpr int max_event_time_ms = 5;

void sleep_s(double seconds) {
  if (seconds > 0) QThread::usleep(static_cast<unsigned long>(seconds * 1e6));
}

}  // namespace

double QtClock::seconds_since_midnight() const {
  return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

double QtClock::monotonic_s() const { return steady_s(); }

Date QtClock::today() const {
  const QDate date = QDate::currentDate();
  return {date.year(), date.month(), date.day()};
}

std::string QtClock::short_date() const {
  return numeric_date(today(), QLocale::system().dateFormat(QLocale::ShortFormat).toStdString());
}

void QtClock::pause(Yield yield, double at_most_s) {
  const double began_s = steady_s();
  throw_when_ending();
  world_.refresh();
  if (yield == Yield::yes) {
    world_.end_wait();
    QCoreApplication::processEvents(QEventLoop::AllEvents, max_event_time_ms);
  } else {
    // All events, so that the window is repainted and can be closed. run_input keeps what the user starts
    // meanwhile.
    const QtWorld::Hold hold(world_);
    QCoreApplication::processEvents(QEventLoop::AllEvents, max_event_time_ms);
  }
  throw_when_ending();
  sleep_s(std::min(turn_s, began_s + at_most_s - steady_s()));
}

void QtClock::run_later(std::function<void()> handler) {
  QTimer::singleShot(0, &world_, [this, handler = std::move(handler)] { world_.run_input(handler); });
}

void QtClock::throw_when_ending() const {
  if (world_.ending()) throw ProgramEnded{};
}

}  // namespace halden
