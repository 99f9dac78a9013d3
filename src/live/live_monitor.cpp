#include "live/live_monitor.h"

#include <algorithm>

namespace halden {

namespace {

constexpr double current_for_s = 2.0;
constexpr double long_frame_current_for_s = 9.0;  // such a frame takes 2.2 s
constexpr double frames_until_old = 4.0;

}  // namespace

FrameOutcome LiveMonitor::take_frame() {
  const FrameOutcome outcome = views_.shown().take_frame();
  if (view_ != views_.state.display_mode) {
    view_ = views_.state.display_mode;
    damaged_frames_ = 0;
    frame_rate_ = {};
  }
  if (outcome == FrameOutcome::discarded) ++damaged_frames_;
  if (outcome == FrameOutcome::complete) {
    frame_rate_.count(clock_.monotonic_s());
    last_whole_ = {clock_.monotonic_s(), clock_.seconds_since_midnight()};
    const std::vector<LiveListener*> listeners = listeners_;  // one may remove itself
    for (LiveListener* listener : listeners) listener->frame_shown();
    sample_clock_.remember_instant();
  }
  return outcome;
}

std::optional<double> LiveMonitor::old_since_s() const {
  if (!has_whole_frame()) return std::nullopt;
  const bool long_frames = views_.state.display_mode != power_view;
  const double least_s = long_frames ? long_frame_current_for_s : current_for_s;
  const double limit_s = std::max(least_s, frames_until_old * frame_rate_.mean_gap_s());
  if (clock_.monotonic_s() - last_whole_->monotonic_s < limit_s) return std::nullopt;
  return last_whole_->since_midnight_s;
}

void LiveMonitor::no_communication() {
  for (LiveListener* listener : listeners_) listener->no_communication();
}

}  // namespace halden
