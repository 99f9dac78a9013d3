#include "live/sampling_time.h"

#include <algorithm>
#include <string>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "screen/panels.h"

namespace halden {

namespace {

constexpr double shortest_s = 2;
constexpr double longest_s = 32767;
constexpr std::int16_t whole_seconds_ms = 1000;

constexpr const char* title = "Input Sampling Time";
constexpr const char* prompt =
    "Enter the SAMPLING TIME in seconds\r\n\r\nThe value can be 2 or any other integer (max. 32767).";

}  // namespace

void ask_sampling_time(Dialogs& dialogs, SampleClock& sample_clock, Window& meter_rec) {
  std::string answer = dialogs.input(prompt, title, format_pattern(sample_clock.sample_time_s(), "#0"));
  if (answer.empty()) return;
  if (const std::size_t comma = answer.find(','); comma != std::string::npos) answer[comma] = '.';
  const double typed_s = leading_number(answer);
  if (typed_s < shortest_s) dialogs.message({"Sampling time must be > 2 seconds", "", Icon::none});
  const double time_s = std::clamp(typed_s, shortest_s, longest_s);
  set_sampling_time(static_cast<std::int16_t>(time_s), sample_clock, meter_rec);
}

void set_sampling_time(std::int16_t time_s, SampleClock& sample_clock, Window& meter_rec) {
  sample_clock.sample_counting = 1;
  sample_clock.clock_tick_ms = whole_seconds_ms;
  sample_clock.sample_tick_count = static_cast<std::int16_t>(time_s - 1);
  meter_rec[sample_time_label].text = format_pattern(time_s, "#0") + " SEC";
}

}  // namespace halden
