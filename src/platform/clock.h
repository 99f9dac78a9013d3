// What time it is, and how the program waits.
//
// All logic is written synchronously: a handler sends, waits, collects. Every wait is a loop in link/ that
// calls Clock::pause once per turn, so that tests can replace time and the windows of the real program keep
// working.
#pragma once

#include <compare>
#include <functional>
#include <string>

namespace halden {

struct Date {
  int year = 1970;
  int month = 1;  // 1..12
  int day = 1;    // 1..31
  auto operator<=>(const Date&) const = default;
};

// Whether a turn of a wait delivers pending interface events (clicks, keys, timer ticks).
enum class Yield { no, yes };

class Clock {
 public:
  virtual ~Clock() = default;

  // Local time of day in seconds, 0 <= s < 86400. Goes back to 0 at midnight.
  virtual double seconds_since_midnight() const = 0;

  // Seconds since some fixed moment; never goes back.
  virtual double monotonic_s() const = 0;

  virtual Date today() const = 0;

  // Today's date in digits, in the order of the desktop's short form ("11/22/2026", "22.11.2026", ...): ten
  // ASCII characters without a blank.
  virtual std::string short_date() const = 0;

  // One turn of a wait that has at most `at_most_s` seconds left. Returns after a few milliseconds, never
  // later than `at_most_s`; with 0 it delivers what is pending and returns at once. Yield::yes delivers
  // pending events. Yield::no repaints and receives, but holds input and all Timers back. Throws ProgramEnded
  // when the program has been asked to end (see program_end.h).
  virtual void pause(Yield yield, double at_most_s) = 0;

  // Calls `handler` as a handler of its own as soon as the program takes input.
  virtual void run_later(std::function<void()> handler) = 0;
};

// Date and time of day of one moment.
struct Moment {
  Date date;
  double seconds_since_midnight = 0;
};

// Asks again when midnight passes between the two questions.
inline Moment now_of(const Clock& clock) {
  Moment now{clock.today(), clock.seconds_since_midnight()};
  while (now.date != clock.today()) now = {clock.today(), clock.seconds_since_midnight()};
  return now;
}

// Lets pending interface events run once.
inline void let_events_run(Clock& clock) { clock.pause(Yield::yes, 0.0); }

}  // namespace halden
