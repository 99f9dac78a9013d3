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
  void drain(std::string& buffer);

  // Throws away everything received.
  void discard();

  // For `seconds`, without yielding, appends everything received to `buffer`; never ends early. Keeps the
  // first reply_buffer_limit bytes.
  void collect(double seconds, std::string& buffer);

  // As long as received characters are waiting: waits `pause_s` without yielding and appends. Ends after at
  // most 6 s, also when something sends without end.
  void drain_while_arriving(double pause_s, std::string& buffer);

  // Appends what arrives, without yielding, until `buffer` holds `length` bytes or `seconds` have passed.
  void drain_until_length(std::size_t length, double seconds, std::string& buffer);

  // Before a settings write: waits in steps of 0.5 s until the count of waiting characters no longer changes;
  // at most about 6 s.
  void wait_until_quiet();

 private:
  // Repeats `turn` for `seconds`, as long as it returns true.
  template <typename Turn>
  void for_seconds(double seconds, Yield yield, Turn turn);

  Clock& clock_;
  SerialPort& port_;
};

}  // namespace halden
