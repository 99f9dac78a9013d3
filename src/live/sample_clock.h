// The sample clock: a tick on every whole second counts towards the sampling time and marks the sampling
// instants by writing the time of day into sample_clock_label. The live poll sees that the label has changed.
#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

class SampleClock {
 public:
  // The window outlives the clock. "Sample Rate" and a double click on a label of the clock ask for the
  // sampling time.
  SampleClock(const Platform& platform, Window& meter_rec);
  SampleClock(const SampleClock&) = delete;
  SampleClock& operator=(const SampleClock&) = delete;

  void tick();

  // Writes today's date into the date label when it is not the one shown.
  void show_date();

  // The sampling time in seconds: the leading number of sample_time_label.
  double sample_time_s() const;

  // The text of sample_clock_label.
  const std::string& sampling_instant() const;

  // Whether the label has changed since remember_instant was last called.
  bool new_instant() const { return sampling_instant() != last_sample_time_; }
  void remember_instant() { last_sample_time_ = sampling_instant(); }

  // Whole seconds from 2 to 32767. The next whole second is a sampling instant.
  void set_sampling_time(std::int16_t time_s);

  // The next whole second is a sampling instant.
  void restart_counting();

 private:
  // A value outside the range is limited to its nearer end, and a fraction is cut off. An empty answer
  // changes nothing.
  void ask_sampling_time();
  bool sampling_instant_reached(double sample_time_s);
  void mark_sampling_instant(double now_s, double sample_time_s);
  void align(double now_s);

  Platform platform_;
  Window& window_;
  std::string last_sample_time_;
  std::int16_t sample_tick_count_ = 0;  // seconds since the last sampling instant
  Date shown_date_{0, 0, 0};
};

}  // namespace halden
