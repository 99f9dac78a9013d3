// The status line of the main window: port, link state, frames per second, recording state. Beside them is
// one hint, which whoever has something to say writes into the control status_hint. All of it is beside the
// messages and captions, never in them. It also marks the readings on the screen while they are old.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/link.h"
#include "live/live_monitor.h"
#include "live/live_view.h"
#include "live/phasors/phasor_window.h"
#include "live/recording/recording.h"
#include "live/sample_clock.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "screen/language.h"
#include "screen/window.h"

namespace halden {

class StatusLine {
 public:
  StatusLine(const Platform& platform, const Link& link, const LiveMonitor& monitor, const LiveViews& views,
             const SampleClock& sample_clock, const Recording& recording, PhasorWindow& phasors,
             Window& meter_rec)
      : platform_(platform),
        link_(link),
        monitor_(monitor),
        views_(views),
        sample_clock_(sample_clock),
        recording_(recording),
        phasors_(phasors),
        window_(meter_rec) {}

  // Brings the fields up to date.
  void refresh();

  // The port that is open from now on.
  void set_port(int number) { number_ = number; }

 private:
  struct LinkField {
    std::string text;
    std::string_view tag;
  };

  LinkField link_field() const;
  std::string rate_text() const;
  std::optional<std::string> misfit_text() const;
  void mark_readings();

  Platform platform_;
  const Link& link_;
  const LiveMonitor& monitor_;
  const LiveViews& views_;
  const SampleClock& sample_clock_;
  const Recording& recording_;
  PhasorWindow& phasors_;
  Window& window_;
  int number_ = 0;  // 0 while no port was opened
  bool marked_old_ = false;
  Language marked_in_ = Language::english;
};

}  // namespace halden
