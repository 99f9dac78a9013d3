#include "logger/meter_line.h"

#include <algorithm>
#include <utility>

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

bool MeterLine::file_comes() {
  if (state_.file_bytes == FileBytes::perhaps && has_bytes()) state_.file_bytes = FileBytes::certainly;
  return state_.file_bytes == FileBytes::certainly;
}

MeterLine::Ending MeterLine::receive_until_silent(
    double first_s, double then_s, const std::function<bool(const std::string& received)>& take) {
  Stopwatch silent(clock_);
  for (double limit_s = first_s; silent.elapsed_s() < limit_s || has_bytes();) {
    const std::string received = receive();
    if (!received.empty()) limit_s = then_s;
    if (!take(received)) return Ending::stopped;
    if (cancelled_) return Ending::cancelled;
    was_gone_ = was_gone_ || port_.state() != PortState::open;
    if (!received.empty()) silent.restart();
    turn(received.empty() ? std::max(limit_s - silent.elapsed_s(), 0.0) : 0);
  }
  return Ending::silent;
}

bool MeterLine::settle(const std::function<void()>& waiting) {
  const bool cancelled_before = std::exchange(cancelled_, false);
  const double end_s = clock_.monotonic_s() + settle_limit_s;
  const Ending ending = receive_until_silent(silence_s, silence_s, [&](const std::string&) {
    waiting();
    return clock_.monotonic_s() < end_s;
  });
  state_.file_bytes = ending == Ending::silent ? FileBytes::none : FileBytes::certainly;
  cancelled_ = cancelled_ || cancelled_before;
  return ending == Ending::silent;
}

}  // namespace halden
