// Pausing and resuming the live poll around every one-shot exchange: stop_polling, the exchange, usually a
// status query, resume_polling(1). While an exchange runs both timers are off, so that no two overlap.
#pragma once

#include <cstdint>

#include "link/link_state.h"
#include "link/waits.h"
#include "platform/platform.h"

namespace halden {

// The live timer's period.
inline constexpr int frame_period_ms = 250;
inline constexpr int waveform_period_ms = 1000;

class Polling {
 public:
  Polling(const Platform& platform, Waits& waits, LinkState& state)
      : platform_(platform), waits_(waits), state_(state) {}

  // 1 with an open port, no download-all running, the line not held and no pause: waits a second, throws away
  // what was received, sends the live request and starts both timers. Otherwise both timers go off. In both
  // cases missed_polls becomes 0 and pending interface events run.
  void resume_polling(std::int16_t flag);

  void stop_polling() { resume_polling(0); }

  // While the line is held, nothing resumes polling or sends a live request: it belongs to the datalogger.
  void hold_line() { held_ = true; }
  void release_line() { held_ = false; }
  bool line_is_held() const { return held_; }

  // During a pause nothing resumes polling either, but exchanges have the line (link/polling_pause.h).
  void pause() { paused_ = true; }
  void end_pause() { paused_ = false; }

  // Sets the live timer's period for the current display_mode (250 ms; 1000 ms for waveforms).
  void set_live_period();

  // The same while polling runs: for the harmonics view it also waits a second, throws away what was received
  // and sends the request. During an exchange set_live_period is enough, because resume_polling requests.
  void set_live_timer();

  // Asks the meter for the next frame of the current view: "W" for a waveform, one blank otherwise.
  void send_live_request();

 private:
  bool may_poll() const { return !held_ && !paused_; }
  void start();
  void stop();

  Platform platform_;
  Waits& waits_;
  LinkState& state_;
  bool held_ = false;
  bool paused_ = false;
};

}  // namespace halden
