// The live views of the program, and which of them counts when.
#pragma once

#include "link/link_state.h"
#include "link/meter_status.h"
#include "live/live_view.h"

namespace halden {

struct LiveViews {
  const LinkState& state;
  const MeterStatus& status;
  LiveView& power;
  LiveView& harmonics;
  LiveView& waveform;

  // The view that runs, by display_mode.
  LiveView& shown() const {
    if (state.display_mode == harmonics_view) return harmonics;
    return state.display_mode == waveform_view ? waveform : power;
  }

  // The view whose kind of data file is created now: the meter's mode decides between power and the two
  // others, the open view between these. Nothing while the mode is unknown.
  LiveView* to_record() const {
    if (status.meter_mode == power_mode) return &power;
    if (status.meter_mode != harmonics_mode) return nullptr;
    return state.display_mode == waveform_view ? &waveform : &harmonics;
  }
};

}  // namespace halden
