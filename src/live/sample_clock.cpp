#include "live/sample_clock.h"

#include <cmath>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "screen/panels.h"

namespace halden {

namespace {

constexpr int shortest_period_ms = 100;

}  // namespace

std::string time_of_day_text(double seconds_since_midnight) {
  const int whole = static_cast<int>(seconds_since_midnight);
  return format_pattern(whole / 3600, "#00") + ":" + format_pattern(whole / 60 % 60, "#00") + ":" +
         format_pattern(whole % 60, "#00");
}

void SampleClock::tick() {
  const double now_s = clock_.seconds_since_midnight();
  show_date();
  const double sample_s = sample_time_s();
  if (sampling_instant_reached(sample_s)) mark_sampling_instant(now_s, sample_s);
  align(now_s);
}

double SampleClock::sample_time_s() const {
  return leading_number(static_cast<const Window&>(window_)[sample_time_label].text);
}

bool SampleClock::sampling_instant_reached(double sample_time_s) {
  if (sample_counting != 1) return true;
  ++sample_tick_count;
  if (sample_tick_count < sample_time_s) return false;
  sample_tick_count = 0;
  return true;
}

void SampleClock::mark_sampling_instant(double now_s, double sample_time_s) {
  Control& label = window_[sample_clock_label];
  if (sample_time_s != 0) label.tag = format_pattern(std::floor(now_s / sample_time_s + 0.5), "#0");
  window_["hold"].visible = false;
  window_["Warning"].visible = false;
  label.text = time_of_day_text(now_s);
}

// The next tick falls on a whole multiple of clock_tick_ms since midnight.
void SampleClock::align(double now_s) {
  const int now_ms = static_cast<int>(round_half_even(now_s * 1000.0));
  int period_ms = clock_tick_ms - now_ms % clock_tick_ms;
  if (period_ms < shortest_period_ms) period_ms += clock_tick_ms;
  timer_.set_period_ms(period_ms);
}

void SampleClock::show_date() {
  if (clock_.today() == shown_date_) return;
  shown_date_ = clock_.today();
  window_[date_label].text = clock_.short_date();
}

}  // namespace halden
