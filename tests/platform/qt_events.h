// Running the event loop in tests: until something has happened, never for a time that merely should be
// enough.
#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace halden {

// Runs events for a fixed time, for what must not happen or must not cost anything.
inline void run_events_for(int duration_ms) {
  QEventLoop loop;
  QTimer::singleShot(duration_ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

// Runs events until `happened` says so; false when that takes longer than `limit_ms`.
template <typename Happened>
bool run_events_until(Happened happened, int limit_ms = 5000) {
  const QDeadlineTimer deadline(limit_ms);
  while (!happened() && !deadline.hasExpired()) run_events_for(2);
  return happened();
}

}  // namespace halden
