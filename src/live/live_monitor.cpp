#include "live/live_monitor.h"

#include "live/once_per_sample.h"
#include "screen/panels.h"

namespace halden {

namespace {

constexpr std::int16_t nearly_a_request = 3;  // the next missed tick repeats the request

}  // namespace

void LiveMonitor::frame_complete() {
  switch (state_.display_mode) {
    case harmonics_view:
      hand_over(steps_.show_harmonics);
      break;
    case waveform_view:
      hand_over(steps_.show_waveform);
      break;
    default:
      power_frame();
      break;
  }
}

void LiveMonitor::no_communication() {
  if (steps_.record_lost_line) steps_.record_lost_line();
}

// A frame that no view takes is dropped and the next one asked for.
void LiveMonitor::hand_over(const std::function<void()>& view) {
  frame_rate_.count(clock_.monotonic_s());
  if (view) {
    view();
    return;
  }
  live_buffer(state_).clear();
  polling_.send_live_request();
}

void LiveMonitor::power_frame() {
  const PowerFrame frame = power_.handle_frame();
  if (frame == PowerFrame::complete) frame_rate_.count(clock_.monotonic_s());
  if (frame == PowerFrame::of_harmonics) state_.missed_polls = nearly_a_request;
  drop_what_never_completes(frame);
  if (new_sampling_instant()) advance_energy_and_demand(readings_, sample_clock_.sample_time_s(), window_);
  if (steps_.record) steps_.record();
  last_sample_time = static_cast<const Window&>(window_)[sample_clock_label].text;
  if (frame == PowerFrame::complete && steps_.after_power_frame) steps_.after_power_frame();
}

// A buffer long enough to pass for a frame, but without a last group, would be found complete for ever and no
// new frame be asked for. When it is still the same at the next tick, it goes.
void LiveMonitor::drop_what_never_completes(PowerFrame frame) {
  if (frame == PowerFrame::complete || state_.poll_buffer.empty()) {
    unfinished_.clear();
  } else if (unfinished_ == state_.poll_buffer) {
    unfinished_.clear();
    state_.poll_buffer.clear();
    state_.missed_polls = nearly_a_request;
  } else {
    unfinished_ = state_.poll_buffer;
  }
}

bool LiveMonitor::new_sampling_instant() const {
  return static_cast<const Window&>(window_)[sample_clock_label].text != last_sample_time;
}

}  // namespace halden
