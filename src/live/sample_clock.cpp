#include "live/sample_clock.h"

#include <algorithm>
#include <cmath>

#include "platform/dialogs.h"
#include "platform/timer.h"
#include "readings/numbers.h"
#include "readings/patterns.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr int shortest_period_ms = 100;
constexpr int tick_ms = 1000;

constexpr double shortest_s = 2;
constexpr double longest_s = 32767;

constexpr const char* title = "Input Sampling Time";
constexpr const char* prompt =
    "Enter the SAMPLING TIME in seconds\r\n\r\nThe value can be 2 or any other integer (max. 32767).";

}  // namespace

std::string time_of_day_text(double seconds_since_midnight) {
  const int whole = static_cast<int>(seconds_since_midnight);
  return format_pattern(whole / 3600, "#00") + ":" + format_pattern(whole / 60 % 60, "#00") + ":" +
         format_pattern(whole % 60, "#00");
}

SampleClock::SampleClock(const Platform& platform, const LinkState& link, Window& meter_rec)
    : platform_(platform), link_(link), window_(meter_rec) {
  const auto ask = [this] { ask_sampling_time(); };
  window_.on_click("SampleRate", ask);
  for (int label = 0; label < clock_label_count; ++label) window_.on_click(element("Label1", label), ask);
}

void SampleClock::tick() {
  const Moment now = now_of(platform_.clock);
  show_date();
  if (link_.link_lost == 0) window_.set_visible("Warning", false);
  const double sample_s = sample_time_s();
  if (sampling_instant_reached(sample_s)) mark_sampling_instant(now, sample_s);
  align(now.seconds_since_midnight);
}

double SampleClock::sample_time_s() const { return leading_number(window_[sample_time_label].text); }

const std::string& SampleClock::sampling_instant() const { return window_[sample_clock_label].text; }

const std::string& SampleClock::instant_date_text() const {
  return instant_date_ ? instant_date_text_ : window_[date_label].text;
}

bool SampleClock::sampling_instant_reached(double sample_time_s) {
  ++sample_tick_count_;
  if (sample_tick_count_ < sample_time_s) return false;
  sample_tick_count_ = 0;
  return true;
}

void SampleClock::mark_sampling_instant(const Moment& now, double sample_time_s) {
  const double now_s = now.seconds_since_midnight;
  if (sample_time_s != 0)
    window_.set_tag(sample_clock_label, format_pattern(std::floor(now_s / sample_time_s + 0.5), "#0"));
  window_.set_visible("hold", false);
  window_.set_text(sample_clock_label, time_of_day_text(now_s));
  instant_date_ = now.date;
  instant_date_text_ = window_[date_label].text;
}

// The next tick falls on a whole second.
void SampleClock::align(double now_s) {
  const int now_ms = static_cast<int>(round_half_even(now_s * 1000.0));
  int period_ms = tick_ms - now_ms % tick_ms;
  if (period_ms < shortest_period_ms) period_ms += tick_ms;
  platform_.timer1.set_period_ms(period_ms);
}

void SampleClock::show_date() {
  if (platform_.clock.today() == shown_date_) return;
  shown_date_ = platform_.clock.today();
  window_.set_text(date_label, platform_.clock.short_date());
}

void SampleClock::ask_sampling_time() {
  std::string answer = platform_.dialogs.input(prompt, title, format_pattern(sample_time_s(), "#0"));
  if (answer.empty()) return;
  if (const std::size_t comma = answer.find(','); comma != std::string::npos) answer[comma] = '.';
  const double typed_s = leading_number(answer);
  if (typed_s < shortest_s) platform_.dialogs.message({"Sampling time must be > 2 seconds", "", Icon::none});
  set_sampling_time(static_cast<std::int16_t>(std::clamp(typed_s, shortest_s, longest_s)));
}

void SampleClock::set_sampling_time(std::int16_t time_s) {
  window_.set_text(sample_time_label, format_pattern(time_s, "#0") + " SEC");
  restart_counting();
}

void SampleClock::restart_counting() {
  sample_tick_count_ = static_cast<std::int16_t>(static_cast<int>(sample_time_s()) - 1);
  align(platform_.clock.seconds_since_midnight());
}

}  // namespace halden
