#include "live/live_monitor.h"

namespace halden {

FrameOutcome LiveMonitor::take_frame() {
  const FrameOutcome outcome = views_.shown().take_frame();
  if (outcome != FrameOutcome::incomplete && outcome != FrameOutcome::damaged)
    frame_rate_.count(clock_.monotonic_s());
  if (outcome == FrameOutcome::complete) {
    const std::vector<LiveListener*> listeners = listeners_;  // one may remove itself
    for (LiveListener* listener : listeners) listener->frame_shown();
    sample_clock_.remember_instant();
  }
  return outcome;
}

void LiveMonitor::no_communication() {
  for (LiveListener* listener : listeners_) listener->no_communication();
}

}  // namespace halden
