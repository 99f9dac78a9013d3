// Passes each complete live frame to the view that runs, and tells the listeners the outcome.
#pragma once

#include <optional>
#include <vector>

#include "link/live_poll.h"
#include "live/frame_rate.h"
#include "live/live_view.h"
#include "live/sample_clock.h"

namespace halden {

class LiveMonitor : public LiveFrames {
 public:
  LiveMonitor(const Clock& clock, const LiveViews& views, SampleClock& sample_clock)
      : clock_(clock), views_(views), sample_clock_(sample_clock) {}

  // Called in the order they were added, until they are removed.
  void add_listener(LiveListener& listener) { listeners_.push_back(&listener); }
  void remove_listener(LiveListener& listener) { std::erase(listeners_, &listener); }

  FrameOutcome take_frame() override;
  void no_communication() override;

  // Frames of the view that runs that could not be used.
  int damaged_frames() const { return view_ == views_.state.display_mode ? damaged_frames_ : 0; }

  const FrameRate& frame_rate() const { return frame_rate_; }

  // Whether a whole frame has come since the start, and since the view was opened.
  bool has_whole_frame() const { return last_whole_ && views_.shown().shows_frame(); }

  // When the last whole frame came, in seconds since midnight, once none has been for two seconds or
  // four frame times (nine seconds in the harmonics and waveform views): what is on the screen is old.
  // Nothing while it is current, and before the first frame.
  std::optional<double> old_since_s() const;

 private:
  const Clock& clock_;
  const LiveViews& views_;
  SampleClock& sample_clock_;
  std::vector<LiveListener*> listeners_;
  FrameRate frame_rate_;
  std::int16_t view_ = power_view;  // the one the damaged frames belong to
  int damaged_frames_ = 0;
  struct Moments {
    double monotonic_s, since_midnight_s;
  };
  std::optional<Moments> last_whole_;  // when the last whole frame was taken
};

}  // namespace halden
