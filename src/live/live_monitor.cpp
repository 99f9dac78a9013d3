#include "live/live_monitor.h"

namespace halden {

void LiveMonitor::frame_complete() {
  const FrameOutcome outcome = views_.shown().take_frame();
  if (outcome != FrameOutcome::incomplete) frame_rate_.count(clock_.monotonic_s());
  if (outcome == FrameOutcome::not_shown) return;
  for (LiveListener* listener : listeners_) listener->reading_taken();
  sample_clock_.remember_instant();
  if (outcome != FrameOutcome::complete) return;
  for (LiveListener* listener : listeners_) listener->frame_shown();
}

void LiveMonitor::no_communication() {
  for (LiveListener* listener : listeners_) listener->no_communication();
}

}  // namespace halden
