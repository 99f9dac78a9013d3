// Hands each complete live frame to the view that runs, and does what follows every frame: the
// once-per-sample work and the recording step.
#pragma once

#include <functional>
#include <string>

#include "link/live_poll.h"
#include "link/polling.h"
#include "live/frame_rate.h"
#include "live/power_monitor.h"
#include "live/sample_clock.h"
#include "readings/readings.h"
#include "screen/window.h"

namespace halden {

// The other views and the recorder, as they join in; an empty function is skipped.
struct LiveSteps {
  std::function<void()> show_harmonics;     // a harmonics frame stands in poll_buffer
  std::function<void()> show_waveform;      // a waveform frame stands in wave_buffer
  std::function<void()> record;             // after each completed reading of the power view
  std::function<void()> record_lost_line;   // the meter does not answer
  std::function<void()> after_power_frame;  // a whole power frame stands on the screen
};

class LiveMonitor : public LiveViews {
 public:
  LiveMonitor(const Clock& clock, Polling& polling, LinkState& state, PowerMonitor& power,
              SampleClock& sample_clock, Readings& readings, Window& meter_rec, LiveSteps& steps)
      : clock_(clock),
        polling_(polling),
        state_(state),
        power_(power),
        sample_clock_(sample_clock),
        readings_(readings),
        window_(meter_rec),
        steps_(steps) {}

  void frame_complete() override;
  void no_communication() override;

  // The text of sample_clock_label at which the once-per-sample work last ran.
  std::string last_sample_time;

  const FrameRate& frame_rate() const { return frame_rate_; }

 private:
  void power_frame();
  void drop_what_never_completes(PowerFrame frame);
  void hand_over(const std::function<void()>& view);
  bool new_sampling_instant() const;

  const Clock& clock_;
  Polling& polling_;
  LinkState& state_;
  PowerMonitor& power_;
  SampleClock& sample_clock_;
  Readings& readings_;
  Window& window_;
  LiveSteps& steps_;
  FrameRate frame_rate_;
  std::string unfinished_;  // poll_buffer after the last tick that found no last group
};

}  // namespace halden
