// The summary of a harmonics or waveform frame on the main window: RMS, peaks, crest factor, distortion,
// fundamental, date and time.
#pragma once

#include <string>

#include "live/sample_clock.h"
#include "readings/wave_texts.h"
#include "screen/window.h"

namespace halden {

class WaveSummary {
 public:
  // All outlive the summary.
  WaveSummary(const Scaling& scaling, const SampleClock& sample_clock, Window& meter_rec)
      : scaling_(scaling), sample_clock_(sample_clock), window_(meter_rec) {}

  void show(const WaveFields& fields);
  void clear();

  const WaveTexts& texts() const { return texts_; }

  // As they are shown.
  const std::string& date() const { return window_["DATE_wave_value"].text; }
  const std::string& time() const { return window_["TIME_wave_value"].text; }

 private:
  const Scaling& scaling_;
  const SampleClock& sample_clock_;
  Window& window_;
  WaveTexts texts_;
};

}  // namespace halden
