// The serial line while the datalogger uses it: waits that Cancel ends, and the silence after a transfer.
//
// The meter cannot be stopped: a transfer that was cancelled or cut goes on, for an hour when the memory is
// full, and whatever is sent to the meter meanwhile is lost or answered with the rest of the file. Nothing is
// sent until the line has been silent for five seconds.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "link/link_state.h"
#include "platform/clock.h"
#include "platform/serial_port.h"

namespace halden {

// After this long without a byte a transfer is over.
inline constexpr double silence_s = 5.0;

// Seconds on the time-of-day clock. Begins anew when that clock goes back, at midnight.
class Stopwatch {
 public:
  explicit Stopwatch(const Clock& clock) : clock_(clock), start_s_(clock.seconds_since_midnight()) {}

  void restart() { start_s_ = clock_.seconds_since_midnight(); }
  double elapsed_s();

 private:
  const Clock& clock_;
  double start_s_;
};

class MeterLine {
 public:
  enum class Ending { silent, cancelled, stopped };

  // All outlive the line.
  MeterLine(Clock& clock, SerialPort& port, LinkState& state) : clock_(clock), port_(port), state_(state) {}

  // An exchange begins: it is not cancelled yet, and the adapter is there.
  void begin() { cancelled_ = was_gone_ = false; }
  void cancel() { cancelled_ = true; }
  bool is_cancelled() const { return cancelled_; }

  void send(std::string_view bytes) { port_.send(bytes); }
  std::string receive() { return port_.receive(); }

  // Whether bytes wait to be received.
  bool has_bytes() { return port_.received_count() > 0; }

  // Whether the adapter was gone at some moment of the exchange; it may have come back.
  bool was_gone() const { return was_gone_; }

  // Waits and yields. False when cancelled, then at once.
  bool wait(double seconds);

  // Throws away what arrives for `seconds`, and after that as long as bytes wait, at most six seconds more.
  // False when cancelled, then at once.
  bool drain(double seconds);

  // Lets the program react for a moment.
  void yield() { turn(0); }

  // Receives until nothing has come for `first_s`, and after the first byte for `then_s`. On each turn `take`
  // gets what has arrived, nothing included; it returns false to stop. Bytes that came while the user read a
  // box, or while the computer slept, are no silence.
  Ending receive_until_silent(double first_s, double then_s,
                              const std::function<bool(const std::string& received)>& take);

  // From a request on bytes of a stored file come, until the line has been silent.
  void expect_file() { state_.file_bytes = FileBytes::perhaps; }

  // Whether such bytes come now, or were coming when a wait for their end was given up.
  bool file_comes();

  // Throws away what arrives until the line has been silent. `waiting` is called on each turn. False when the
  // user cancels that, or when the line is not silent for two hours, longer than any file takes. An earlier
  // cancellation, that of the transfer, does not end it and is not forgotten.
  bool settle(const std::function<void()>& waiting);

 private:
  // Yields for one turn of a wait that has at most this many seconds left.
  void turn(double at_most_s) { clock_.pause(Yield::yes, at_most_s); }

  Clock& clock_;
  SerialPort& port_;
  LinkState& state_;
  bool cancelled_ = false;
  bool was_gone_ = false;
};

}  // namespace halden
