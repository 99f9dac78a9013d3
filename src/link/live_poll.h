// The live request cycle: what each tick of timer2 does until a frame is complete, and when the request is
// repeated because the meter is silent. The view that runs interprets the frame.
#pragma once

#include "link/link_state.h"
#include "link/polling.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

// Takes what the live poll hands over.
class LiveFrames {
 public:
  virtual ~LiveFrames() = default;

  // A complete frame is in poll_buffer or wave_buffer, whichever belongs to the current display_mode.
  virtual void frame_complete() = 0;

  // More than 16 consecutive ticks ended with an incomplete frame.
  virtual void no_communication() = 0;
};

class LivePoll {
 public:
  LivePoll(const Platform& platform, Waits& waits, Polling& polling, LinkState& state, Window& meter_rec,
           LiveFrames& frames)
      : platform_(platform),
        waits_(waits),
        polling_(polling),
        state_(state),
        meter_rec_(meter_rec),
        frames_(frames) {}

  void tick();

 private:
  void count_missed_poll();

  Platform platform_;
  Waits& waits_;
  Polling& polling_;
  LinkState& state_;
  Window& meter_rec_;
  LiveFrames& frames_;
};

// Whether the live buffer of the current view holds a complete frame: power at least 51 characters; harmonics
// at least 1874 with a "B" and an "E"; waveform at least 2108 bytes with both.
bool frame_is_complete(const LinkState& state);

}  // namespace halden
