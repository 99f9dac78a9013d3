#include "logger/meter_line.h"

namespace halden {

namespace {

constexpr double drain_limit_s = 6.0;
constexpr double settle_limit_s = 2 * 3600.0;

}  // namespace

double Stopwatch::elapsed_s() {
  const double now_s = clock_.seconds_since_midnight();
  if (now_s < start_s_) start_s_ = now_s;
  return now_s - start_s_;
}

bool MeterLine::wait(double seconds) {
  Stopwatch since(clock_);
  for (double elapsed_s = 0; elapsed_s < seconds && !cancelled_; elapsed_s = since.elapsed_s())
    turn(seconds - elapsed_s);
  return !cancelled_;
}

bool MeterLine::drain(double seconds) {
  Stopwatch since(clock_);
  for (double elapsed_s = 0; elapsed_s < seconds && !cancelled_; elapsed_s = since.elapsed_s()) {
    receive();
    turn(seconds - elapsed_s);
  }
  const double end_s = clock_.monotonic_s() + drain_limit_s;
  while (has_bytes() && !cancelled_ && clock_.monotonic_s() < end_s) {
    receive();
    turn(0);
  }
  receive();
  return !cancelled_;
}

bool MeterLine::settle(const std::function<void()>& waiting) {
  cancelled_ = false;
  Stopwatch silent(clock_);
  const double end_s = clock_.monotonic_s() + settle_limit_s;
  while (silent.elapsed_s() < silence_s) {
    if (cancelled_ || clock_.monotonic_s() >= end_s) return false;
    if (!receive().empty()) silent.restart();
    waiting();
    turn(silence_s - silent.elapsed_s());
  }
  may_send_on_ = false;
  return true;
}

}  // namespace halden
