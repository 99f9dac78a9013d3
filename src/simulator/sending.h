// The sending side of the meter's serial line at 9600 baud: 960 bytes a second, computed from the elapsed
// time, never one event per byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace halden::simulator {

inline constexpr double bytes_per_second = 960.0;
inline constexpr std::size_t max_untaken_bytes = 65536;  // a stored file may be longer and is kept whole

// One reply on its way. Byte i (from 0) has arrived (i + 1) / 960 s after the start, later ones after the
// pause.
struct Transmission {
  std::string bytes;
  double start_s = 0.0;
  std::size_t pause_after = 0;
  double pause_s = 0.0;

  std::size_t arrived(double now_s) const;
  double arrival_s(std::size_t index) const;
  double end_s() const { return arrival_s(bytes.size() - 1); }
};

// The replies being sent and kept: at most two, one after another.
class SendQueue {
 public:
  // Makes the bytes that have arrived by now_s ready for take(). Call it first whenever time has passed.
  void catch_up(double now_s);

  // Whether a further request would be kept.
  bool has_room() const { return queue_.size() < 2; }

  // Drops what has not arrived yet.
  void stop();

  // Starts the reply at its start_s, but not before the one in front has been sent. Empty replies are
  // dropped.
  void send(Transmission reply);

  std::string take();
  std::size_t waiting(double now_s) const;

  // When the next byte arrives after now_s; infinity when none is on its way.
  double next_s(double now_s) const;

 private:
  std::deque<Transmission> queue_;         // not sent completely yet
  std::size_t collected_ = 0;              // bytes of the first transmission that are in arrived_ already
  std::string arrived_;                    // not taken yet; the newest limit_ bytes
  std::size_t limit_ = max_untaken_bytes;  // as long as the longest reply not taken yet, if that is longer
};

// An endless stream of meaningless bytes, generated only when they are taken.
class EndlessStream {
 public:
  void start(double now_s);  // does nothing while it runs
  void stop() { start_s_.reset(); }

  std::string take(double now_s);  // the newest max_untaken_bytes
  std::size_t waiting(double now_s) const;
  double next_s(double now_s) const;

 private:
  std::uint64_t sent(double now_s) const;

  std::optional<double> start_s_;
  std::uint64_t taken_ = 0;
};

}  // namespace halden::simulator
