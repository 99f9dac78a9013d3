// The sample clock: a tick on every whole second counts towards the sampling time and marks the sampling
// instants by writing the time of day into sample_clock_label. The live poll sees that the label has changed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "link/link_state.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

class SampleClock {
 public:
  // Link state and window outlive the clock. "Sample Rate" and a double click on a label of the clock ask for
  // the sampling time.
  SampleClock(const Platform& platform, const LinkState& link, Window& meter_rec);
  SampleClock(const SampleClock&) = delete;
  SampleClock& operator=(const SampleClock&) = delete;

  void tick();

  // Writes today's date into the date label when it is not the one shown.
  void show_date();

  // The sampling time in seconds: the leading number of sample_time_label.
  double sample_time_s() const;

  // The text of sample_clock_label, and the date of that moment; today's before the first instant.
  const std::string& sampling_instant() const;
  Date instant_date() const { return instant_date_.value_or(platform_.clock.today()); }

  // The same date as the date label shows it.
  const std::string& instant_date_text() const;

  // Whether the label has changed since remember_instant was last called.
  bool new_instant() const { return sampling_instant() != last_sample_time_; }
  void remember_instant() { last_sample_time_ = sampling_instant(); }

  // Whole seconds from 2 to 32767. The next whole second is a sampling instant.
  void set_sampling_time(std::int16_t time_s);

  // The next whole second a tenth of a second or more away is a sampling instant.
  void restart_counting();

 private:
  // A value outside the range is limited to its nearer end, and a fraction is cut off. An empty answer
  // changes nothing.
  void ask_sampling_time();
  bool sampling_instant_reached(double sample_time_s);
  void mark_sampling_instant(const Moment& now, double sample_time_s);
  void align(double now_s);

  Platform platform_;
  const LinkState& link_;
  Window& window_;
  std::string last_sample_time_;
  std::int16_t sample_tick_count_ = 0;  // seconds since the last sampling instant
  std::optional<Date> instant_date_;
  std::string instant_date_text_;
  Date shown_date_{0, 0, 0};
};

// Seconds since midnight as "hh:mm:ss".
std::string time_of_day_text(double seconds_since_midnight);

}  // namespace halden
