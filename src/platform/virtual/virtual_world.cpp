#include "platform/virtual/virtual_world.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/program_end.h"

namespace halden {

namespace {

constexpr std::int64_t day_us = 86'400'000'000;
constexpr std::int64_t turn_us = 5'000;  // how long one turn of a wait takes at the most

std::int64_t days_of(Date date) {
  const std::chrono::year_month_day ymd{std::chrono::year(date.year),
                                        std::chrono::month(static_cast<unsigned>(date.month)),
                                        std::chrono::day(static_cast<unsigned>(date.day))};
  return std::chrono::sys_days(ymd).time_since_epoch().count();
}

std::string two_digits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

double VirtualClock::seconds_since_midnight() const { return world_.time_of_day_s(); }

double VirtualClock::monotonic_s() const { return static_cast<double>(world_.now_us()) / 1e6; }

Date VirtualClock::today() const { return world_.date(); }

std::string VirtualClock::short_date() const {
  const Date date = today();
  return two_digits(date.month) + "/" + two_digits(date.day) + "/" + std::to_string(date.year);
}

void VirtualClock::pause(Yield yield, double at_most_s) {
  world_.deliver_closing();
  if (world_.ended()) throw ProgramEnded();
  if (yield == Yield::yes) world_.deliver_due();
  if (at_most_s > 0) {
    const auto limit_us = static_cast<std::int64_t>(std::ceil(at_most_s * 1e6));
    world_.advance_us(std::min(limit_us, turn_us));
  }
  if (world_.ended()) throw ProgramEnded();
}

void VirtualClock::run_later(std::function<void()> handler) { world_.user_does(0, std::move(handler)); }

void VirtualTimer::set_enabled(bool enabled) { schedule_.set_enabled(enabled, world_.now_us()); }

void VirtualTimer::set_period_ms(int period_ms) { schedule_.set_period_ms(period_ms, world_.now_us()); }

void VirtualTimer::tick_if_due() {
  if (in_tick_ || !handler_ || !schedule_.take_due(world_.now_us())) return;
  in_tick_ = true;
  dispatch(handler_);
  in_tick_ = false;
}

VirtualWorld::VirtualWorld(Date date, double time_of_day_s)
    : days_from_epoch_(days_of(date)), start_of_day_us_(static_cast<std::int64_t>(time_of_day_s * 1e6)) {
  timer1.set_period_ms(2000);
  timer2.set_period_ms(250);
  dialogs.after_answer = [this] {
    if (ended()) throw ProgramEnded();
  };
}

Platform VirtualWorld::platform(SerialPort& port) {
  return {clock, timer1, timer2, port, dialogs, printer, pictures, shell, files};
}

double VirtualWorld::time_of_day_s() const {
  const std::int64_t local_us = start_of_day_us_ + clock_offset_us_ + now_us_;
  return static_cast<double>((local_us % day_us + day_us) % day_us) / 1e6;
}

Date VirtualWorld::date() const {
  const std::int64_t local_us = start_of_day_us_ + clock_offset_us_ + now_us_;
  const std::int64_t days =
      days_from_epoch_ + (local_us >= 0 ? local_us / day_us : -((-local_us - 1) / day_us + 1));
  const std::chrono::year_month_day ymd{std::chrono::sys_days(std::chrono::days(days))};
  return {static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

void VirtualWorld::run_for(double seconds) {
  const std::int64_t end_us = now_us_ + static_cast<std::int64_t>(std::llround(seconds * 1e6));
  while (!ended()) {
    deliver_due();
    if (ended() || now_us_ >= end_us) return;
    now_us_ = std::max(now_us_, std::min(end_us, next_event_us()));
  }
}

bool VirtualWorld::run_until(const std::function<bool()>& condition, double limit_s) {
  const std::int64_t end_us = now_us_ + static_cast<std::int64_t>(std::llround(limit_s * 1e6));
  while (!condition()) {
    if (ended() || now_us_ >= end_us) return false;
    deliver_due();
    if (condition()) return true;
    now_us_ = std::max(now_us_, std::min(end_us, next_event_us()));
  }
  return true;
}

void VirtualWorld::user_does(double after_s, std::function<void()> action) {
  actions_.emplace(now_us_ + static_cast<std::int64_t>(after_s * 1e6), std::move(action));
}

void VirtualWorld::user_closes(double after_s, std::function<void()> action) {
  closing_.emplace(now_us_ + static_cast<std::int64_t>(after_s * 1e6), std::move(action));
}

void VirtualWorld::deliver_closing() {
  while (!ended() && deliver_one_of(closing_)) {
  }
}

// Each pending event once: an event that becomes due while these are handled waits for the next turn.
void VirtualWorld::deliver_due() {
  deliver_closing();
  while (!ended() && deliver_one_of(actions_)) {
  }
  VirtualTimer* first = &timer1;
  VirtualTimer* second = &timer2;
  if (second->ready() && second->due_us() < first->due_us()) std::swap(first, second);
  for (VirtualTimer* timer : {first, second})
    if (!ended()) timer->tick_if_due();
}

bool VirtualWorld::deliver_one_of(Actions& actions) {
  const auto next = actions.begin();
  if (next == actions.end() || next->first > now_us_) return false;
  const std::function<void()> action = std::move(next->second);
  actions.erase(next);
  dispatch(action);
  return true;
}

std::int64_t VirtualWorld::next_event_us() const {
  std::int64_t next = std::numeric_limits<std::int64_t>::max();
  for (const VirtualTimer* timer : {&timer1, &timer2})
    if (timer->ready()) next = std::min(next, timer->due_us());
  for (const Actions* actions : {&actions_, &closing_})
    if (!actions->empty()) next = std::min(next, actions->begin()->first);
  return next;
}

}  // namespace halden
