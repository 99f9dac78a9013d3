#include "platform/qt/core/qt_timer.h"

#include <algorithm>

#include "platform/qt/core/qt_world.h"
#include "platform/qt/core/steady_time.h"

namespace halden {

QtTimer::QtTimer(QtWorld& world) : world_(world) {
  alarm_.setTimerType(Qt::PreciseTimer);
  alarm_.setSingleShot(true);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] { fire(); });
  QObject::connect(&world, &QtWorld::wait_over, &alarm_, [this] { arm(); });
  QObject::connect(&world, &QtWorld::ended, &alarm_, &QTimer::stop);
}

void QtTimer::set_enabled(bool enabled) {
  schedule_.set_enabled(enabled, steady_us());
  arm();
}

void QtTimer::set_period_ms(int period_ms) {
  schedule_.set_period_ms(period_ms, steady_us());
  arm();
}

// Rounded up: an alarm before the due moment would have to be set again.
void QtTimer::arm() {
  alarm_.stop();
  if (!enabled() || in_tick_ || world_.ending()) return;
  const std::int64_t wait_us = std::max<std::int64_t>(schedule_.due_us() - steady_us(), 0);
  alarm_.start(static_cast<int>((wait_us + 999) / 1000));
}

// A tick that comes while input is held back stays due; the end of the wait sets the alarm again.
void QtTimer::fire() {
  if (world_.holding()) return;
  if (schedule_.take_due(steady_us()) && handler_) {
    in_tick_ = true;
    world_.run(handler_);
    in_tick_ = false;
  }
  arm();
}

}  // namespace halden
