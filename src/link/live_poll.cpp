#include "link/live_poll.h"

#include <string>

#include "platform/clock.h"
#include "platform/shell.h"
#include "platform/timer.h"

namespace halden {

namespace {

constexpr std::size_t power_frame_length = 51;
constexpr std::size_t harmonics_frame_length = 1874;
constexpr std::size_t waveform_frame_length = 2108;

constexpr int request_again_every = 4;          // missed ticks
constexpr int missed_polls_before_request = 3;  // the next missed tick repeats the request
constexpr int lost_after = 16;
constexpr int give_up_after = 20;
constexpr double arriving_pause_s = 0.2;

// A harmonics or waveform frame takes more than two seconds. While its bytes arrive a tick is not missed;
// more bytes than this without a frame among them are no frame.
constexpr std::size_t longest_frame_and_rest = 2 * waveform_frame_length;

bool holds_frame_marks(const std::string& buffer) {
  return buffer.find('B') != std::string::npos && buffer.find('E') != std::string::npos;
}

}  // namespace

bool frame_is_complete(const LinkState& state) {
  switch (state.display_mode) {
    case harmonics_view:
      return state.poll_buffer.size() >= harmonics_frame_length && holds_frame_marks(state.poll_buffer);
    case waveform_view:
      return state.wave_buffer.size() >= waveform_frame_length && holds_frame_marks(state.wave_buffer);
    default:
      return state.poll_buffer.size() >= power_frame_length;
  }
}

void LivePoll::tick() {
  const bool arrived = waits_.drain(live_buffer(state_)) > 0;
  const bool inside_frame = !frame_is_complete(state_) && inside_long_frame(arrived);
  look_sooner(inside_frame);
  if (inside_frame) return;
  if (!frame_is_complete(state_)) return count_missed_poll(Repeat::due);
  waits_.drain(live_buffer(state_));
  waits_.drain_while_arriving(arriving_pause_s, live_buffer(state_));
  switch (frames_.take_frame()) {
    case FrameOutcome::complete:
      state_.missed_polls = 0;
      state_.link_lost = 0;
      break;
    case FrameOutcome::other_mode:
      state_.missed_polls = missed_polls_before_request;
      state_.link_lost = 0;
      break;
    case FrameOutcome::other_mode_arriving:
      if (!arrived) count_missed_poll(Repeat::due);
      break;
    case FrameOutcome::damaged:
      count_missed_poll(Repeat::done);
      break;
    case FrameOutcome::discarded:
      begin_anew();
      break;
    case FrameOutcome::incomplete:
      if (!inside_long_frame(arrived)) count_missed_poll(arrived ? Repeat::not_inside_a_frame : Repeat::due);
      break;
  }
}

bool LivePoll::inside_long_frame(bool arrived) const {
  return arrived && state_.display_mode != power_view && live_buffer(state_).size() <= longest_frame_and_rest;
}

// The ticks of the waveform view are a second apart; a frame is shown soon after its last byte all the same.
void LivePoll::look_sooner(bool arriving) {
  if (state_.display_mode == waveform_view)
    platform_.timer2.set_period_ms(arriving ? frame_period_ms : waveform_period_ms);
}

void LivePoll::begin_anew() {
  waits_.discard();
  live_buffer(state_).clear();
  state_.missed_polls = 0;
  polling_.send_live_request();
}

void LivePoll::count_missed_poll(Repeat repeat) {
  ++state_.missed_polls;
  if (state_.missed_polls % request_again_every == 0 && repeat == Repeat::due) polling_.send_live_request();
  if (state_.missed_polls > lost_after) {
    state_.link_lost = 1;
    meter_rec_.set_visible("Warning", true);
    let_events_run(platform_.clock);
    frames_.no_communication();
  }
  if (state_.missed_polls > give_up_after) {
    platform_.shell.beep();
    state_.poll_buffer.clear();
    state_.wave_buffer.clear();  // a head of five seconds ago would spoil the waveform that comes after it
    if (repeat != Repeat::done) polling_.send_live_request();
    state_.missed_polls = 0;
  }
}

}  // namespace halden
