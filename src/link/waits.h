// Timed waits, and collecting what the meter sends. Replies have no framing: they end by time.
#pragma once

#include <cstddef>
#include <string>

#include "platform/clock.h"
#include "platform/serial_port.h"

namespace halden {

class Waits {
 public:
  Waits(Clock& clock, SerialPort& port) : clock_(clock), port_(port) {}

  // Returns after `seconds` on the time-of-day clock. When the clock goes back (midnight) the wait starts
  // again, so a wait across midnight lasts up to `seconds` again after it. Throws ProgramEnded when the
  // program ends meanwhile.
  void timed_wait(double seconds, Yield yield);

  // Appends everything received to a live buffer, of which the newest live_buffer_limit bytes are kept.
  // Returns how many bytes were received; the buffer does not tell, because a full one keeps its size.
  std::size_t drain(std::string& buffer);

  // When bytes for a live buffer last arrived, monotonic; 0 before the first ones.
  double last_arrival_s() const { return last_arrival_s_; }

  // Throws away everything received.
  void discard();

  // The same until nothing has come for five seconds, without yielding. False when that was not so within
  // six.
  bool discard_until_silent();

  // For `seconds`, without yielding, appends everything received to `buffer`; never ends early. Keeps the
  // first reply_buffer_limit bytes.
  void collect(double seconds, std::string& buffer);

  // As long as received characters are waiting: waits `pause_s` without yielding and appends. Ends after at
  // most 6 s, also when something sends without end.
  void drain_while_arriving(double pause_s, std::string& buffer);

  // Waits up to `seconds`, without yielding, for something to arrive, and appends it. Whether something came.
  bool drain_next(double seconds, std::string& buffer);

  // Before a settings write: waits in steps of 0.5 s until the count of waiting characters no longer changes;
  // at most about 6 s.
  void wait_until_quiet();

 private:
  // Repeats `turn` for `seconds`, as long as it returns true.
  template <typename Turn>
  void for_seconds(double seconds, Yield yield, Turn turn);

  Clock& clock_;
  SerialPort& port_;
  double last_arrival_s_ = 0;
};

}  // namespace halden
