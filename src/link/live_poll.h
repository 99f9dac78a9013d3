// The live request cycle: what each tick of timer2 does until a whole frame has been read, and when the
// request is repeated because none comes. The view that runs interprets the frame.
#pragma once

#include "link/link_state.h"
#include "link/polling.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

// What became of the contents of a live buffer.
enum class FrameOutcome {
  complete,    // a whole frame is on the screen, and the next one is requested
  damaged,     // a frame that has a value missing; the next one is requested
  discarded,   // a frame that cannot be used: what was received is thrown away, and a new one requested
  incomplete,  // no frame, or one that is still arriving
  other_mode,  // a frame of the meter's other mode
  other_mode_arriving  // the same, not whole yet
};

// Takes what the live poll hands over.
class LiveFrames {
 public:
  virtual ~LiveFrames() = default;

  // frame_is_complete is true. The buffer is poll_buffer or wave_buffer, whichever belongs to the current
  // display_mode.
  virtual FrameOutcome take_frame() = 0;

  // More than 16 consecutive ticks ended without a whole frame.
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
  // Whether a missed tick repeats the request. `done`: the view has sent it already. `not_inside_a_frame`:
  // bytes still arrive, and a request would start their frame anew.
  enum class Repeat { due, done, not_inside_a_frame };
  bool inside_long_frame(bool arrived) const;
  void look_sooner(bool arriving);
  void begin_anew();
  void count_missed_poll(Repeat repeat);

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
