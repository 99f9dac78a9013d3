// The platform in memory, with virtual time: a day of work takes seconds and every run gives the same result.
//
// Time does not advance while code runs, only in waits, run_for and run_until. What a user does is scheduled
// with `user_does` and reaches the program when it takes input: in the event loop or in a wait that yields.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/platform.h"
#include "platform/timer.h"
#include "platform/timer_schedule.h"
#include "platform/virtual/virtual_desktop.h"
#include "platform/virtual/virtual_files.h"

namespace halden {

class VirtualWorld;

class VirtualClock : public Clock {
 public:
  explicit VirtualClock(VirtualWorld& world) : world_(world) {}
  double seconds_since_midnight() const override;
  double monotonic_s() const override;
  Date today() const override;
  std::string short_date() const override;  // mm/dd/yyyy
  void pause(Yield yield, double at_most_s) override;
  void run_later(std::function<void()> handler) override;

 private:
  VirtualWorld& world_;
};

class VirtualTimer : public Timer {
 public:
  explicit VirtualTimer(VirtualWorld& world) : world_(world) {}
  bool enabled() const override { return schedule_.enabled(); }
  void set_enabled(bool enabled) override;
  int period_ms() const override { return schedule_.period_ms(); }
  void set_period_ms(int period_ms) override;
  void on_tick(std::function<void()> handler) override { handler_ = std::move(handler); }

  // Whether it could tick now or later, and when.
  bool ready() const { return schedule_.enabled() && !in_tick_; }
  std::int64_t due_us() const { return schedule_.due_us(); }
  void tick_if_due();

 private:
  VirtualWorld& world_;
  TimerSchedule schedule_;
  std::function<void()> handler_;
  bool in_tick_ = false;
};

class VirtualWorld {
 public:
  explicit VirtualWorld(Date date = {2026, 11, 22}, double time_of_day_s = 12 * 3600.0);

  VirtualClock clock{*this};
  VirtualTimer timer1{*this};
  VirtualTimer timer2{*this};
  VirtualFiles files;
  VirtualDialogs dialogs;
  VirtualPrinter printer;
  VirtualPictures pictures;
  VirtualShell shell;

  Platform platform(SerialPort& port);

  // Runs the event loop for that long, or until the program has ended.
  void run_for(double seconds);

  // Runs the event loop until the condition holds; false when it did not within `limit_s`.
  bool run_until(const std::function<bool()>& condition, double limit_s);

  // Calls `action` as a handler of its own, `after_s` from now, as soon as the program takes input.
  void user_does(double after_s, std::function<void()> action);

  // The same for closing a window, which also reaches a program that waits without taking input.
  void user_closes(double after_s, std::function<void()> action);

  bool ended() const { return shell.ended; }
  std::int64_t now_us() const { return now_us_; }
  double time_of_day_s() const;
  Date date() const;

  // Sets the computer's clock forward (or back, when negative), as a user may do: time of day and date
  // change, monotonic time and the timers do not.
  void set_clock_forward(double seconds) { clock_offset_us_ += static_cast<std::int64_t>(seconds * 1e6); }

 private:
  friend class VirtualClock;

  void advance_us(std::int64_t step_us) { now_us_ += step_us; }
  void deliver_due();
  using Actions = std::multimap<std::int64_t, std::function<void()>>;
  bool deliver_one_of(Actions& actions);
  void deliver_closing();
  std::int64_t next_event_us() const;

  std::int64_t days_from_epoch_;
  std::int64_t start_of_day_us_;
  std::int64_t clock_offset_us_ = 0;
  std::int64_t now_us_ = 0;
  Actions actions_;
  Actions closing_;
};

}  // namespace halden
