#include "link/waits.h"

#include "link/link_state.h"

namespace halden {

namespace {

constexpr double arriving_limit_s = 6.0;
constexpr double file_silence_s = 5.0;
constexpr double quiet_step_s = 0.5;
constexpr std::size_t unlikely_count = 1000;  // the "previous count" before wait_until_quiet has read one

}  // namespace

template <typename Turn>
void Waits::for_seconds(double seconds, Yield yield, Turn turn) {
  double start = clock_.seconds_since_midnight();
  for (double now = start; now - start < seconds; now = clock_.seconds_since_midnight()) {
    if (now < start) start = now;
    if (!turn()) return;
    clock_.pause(yield, seconds - (now - start));
  }
}

void Waits::timed_wait(double seconds, Yield yield) {
  for_seconds(seconds, yield, [] { return true; });
}

std::size_t Waits::drain(std::string& buffer) {
  const std::string received = port_.receive();
  buffer += received;
  if (buffer.size() > live_buffer_limit) buffer.erase(0, buffer.size() - live_buffer_limit);
  if (!received.empty()) last_arrival_s_ = clock_.monotonic_s();
  return received.size();
}

void Waits::discard() { port_.receive(); }

bool Waits::discard_until_silent() {
  double silent_since_s = clock_.monotonic_s();
  for_seconds(arriving_limit_s, Yield::no, [&] {
    if (!port_.receive().empty()) silent_since_s = clock_.monotonic_s();
    return clock_.monotonic_s() - silent_since_s < file_silence_s;
  });
  return clock_.monotonic_s() - silent_since_s >= file_silence_s;
}

void Waits::collect(double seconds, std::string& buffer) {
  const auto gather = [&] {
    buffer += port_.receive();
    if (buffer.size() > reply_buffer_limit) buffer.resize(reply_buffer_limit);
    return true;
  };
  for_seconds(seconds, Yield::no, gather);
  gather();
}

void Waits::drain_while_arriving(double pause_s, std::string& buffer) {
  const double end_s = clock_.monotonic_s() + arriving_limit_s;
  while (port_.received_count() > 0 && clock_.monotonic_s() < end_s) {
    timed_wait(pause_s, Yield::no);
    drain(buffer);
  }
}

bool Waits::drain_next(double seconds, std::string& buffer) {
  bool came = false;
  for_seconds(seconds, Yield::no, [&] {
    came = drain(buffer) > 0;
    return !came;
  });
  return came;
}

void Waits::wait_until_quiet() {
  const double end_s = clock_.monotonic_s() + arriving_limit_s;
  for (std::size_t previous = unlikely_count;
       port_.received_count() != previous && clock_.monotonic_s() < end_s;) {
    timed_wait(quiet_step_s, Yield::no);
    previous = port_.received_count();
  }
}

}  // namespace halden
