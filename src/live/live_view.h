// What the live poll and the recorder know of a live view: power, harmonics or waveform.
#pragma once

#include <functional>
#include <string>

#include "formats/data_file.h"

namespace halden {

enum class FrameOutcome {
  complete,    // a whole frame stands on the screen
  incomplete,  // something else: what it held stands on the screen
  not_shown,   // a whole frame that the view does not show
};

class LiveView {
 public:
  virtual ~LiveView() = default;

  // The live buffer passes for a complete frame: takes it off there, shows it, and asks for the next one.
  virtual FrameOutcome take_frame() = 0;

  // ---- its data file ----
  virtual RecordKind record_kind() const = 0;

  // The header lines of a new file, each with its line end.
  virtual std::string header() = 0;

  // One line, without its line end, of exactly what is shown; empty when there is nothing to record.
  virtual std::string record() const = 0;
};

// Learns what the live poll brings.
class LiveListener {
 public:
  virtual ~LiveListener() = default;

  // A view has taken a frame; the sample clock still knows the sampling instant of the one before.
  virtual void reading_taken() {}

  // A whole frame stands on the screen, and has been recorded where that was due.
  virtual void frame_shown() {}

  // At every tick while the meter does not answer.
  virtual void no_communication() {}
};

}  // namespace halden
