// The live views (power, harmonics, waveform), as the live poll and the recording see them.
#pragma once

#include <cstddef>
#include <string>

#include "formats/data_file.h"
#include "formats/record_field.h"
#include "link/link_state.h"
#include "link/live_poll.h"
#include "link/meter_status.h"

namespace halden {

// What arrives does not fit the view that runs or the meter's wiring system; the status line says so.
struct Misfit {
  bool other_mode = false;      // frames of the meter's other mode
  std::size_t phases_sent = 0;  // groups for this many phases; 0 when the number fits
};

// What a view records. Records of another source do not belong under the same header.
struct RecordSource {
  RecordKind kind = RecordKind::power;
  int channel = 0;  // of harmonics and waveforms: V1, I1, V2, I2, V3, I3
  int option = 0;   // of harmonics: 0 percentages, 1 phase angles

  bool operator==(const RecordSource&) const = default;
};

class LiveView {
 public:
  virtual ~LiveView() = default;

  // The view has been opened: nothing of an earlier frame is shown any more.
  virtual void begin() {}

  // Whether a frame is shown that can become old. Not between begin() and the first frame.
  virtual bool shows_frame() const { return true; }

  // frame_is_complete is true: removes the frame from the live buffer, shows it and requests the next one.
  virtual FrameOutcome take_frame() = 0;

  // Of the newest frames.
  virtual Misfit misfit() const = 0;

  // ---- its data file ----
  // That of the newest frame.
  virtual RecordSource source() const = 0;

  // The header lines of a new file, each with its line end.
  virtual std::string header() = 0;

  // Exactly what is shown.
  virtual RecordLine record() const = 0;
};

// The live views of the program: which one is shown, and which one is recorded.
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

// Is told what the live poll receives.
class LiveListener {
 public:
  virtual ~LiveListener() = default;

  // A whole frame is on the screen; the sample clock still holds the sampling instant of the frame before.
  virtual void frame_shown() {}

  // At every tick while the meter does not answer.
  virtual void no_communication() {}
};

}  // namespace halden
