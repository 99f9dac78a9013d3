// The status line of the main window: port, link state, frames per second, recording state. The control
// status_hint beside them shows one hint, which every room may write. It never replaces a message box.
#pragma once

#include <string_view>

#include "link/link_state.h"
#include "live/frame_rate.h"
#include "live/recording/recording.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "screen/language.h"
#include "screen/window.h"

namespace halden {

class StatusLine {
 public:
  StatusLine(const Platform& platform, const LinkState& state, const FrameRate& frame_rate,
             const Recording& recording, Window& meter_rec)
      : platform_(platform),
        state_(state),
        frame_rate_(frame_rate),
        recording_(recording),
        window_(meter_rec) {}

  // Brings the fields up to date.
  void refresh();

  // The port that is open from now on.
  void set_port(int number) { number_ = number; }

 private:
  struct LinkField {
    Text text;
    std::string_view tag;
  };

  LinkField link_field(double frames_per_s) const;

  Platform platform_;
  const LinkState& state_;
  const FrameRate& frame_rate_;
  const Recording& recording_;
  Window& window_;
  int number_ = 0;  // 0 while no port was opened
};

}  // namespace halden
