// The status line of the main window: port, link state, frames per second, recording state, and one hint that
// says why something did not go as asked. All of it is beside the messages and captions, never in them.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "link/link_state.h"
#include "live/frame_rate.h"
#include "live/recording.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
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

  // Brings the fields up to date; touches only what changed.
  void refresh();

  // The port that is open from now on.
  void tell_port(int number);

  // Why a port did not open.
  void tell_refusal(int number, PortRefusal refusal);

  // Whether a choice could be kept in the working folder.
  void tell_saved(bool saved);

  // A setting is on its way to the meter.
  void tell_sending(std::string_view setting);

  // A sentence of another part of the program; empty takes the last one away.
  void tell(std::string hint) { hint_ = std::move(hint); }

 private:
  struct Link {
    std::string_view text;
    std::string_view tag;
  };

  Link link() const;
  std::string_view in_language(std::string_view english_text, std::string_view chinese_text) const;
  void show(std::string_view control, std::string text);

  Platform platform_;
  const LinkState& state_;
  const FrameRate& frame_rate_;
  const Recording& recording_;
  Window& window_;
  int number_ = 0;
  std::string hint_;
};

}  // namespace halden
