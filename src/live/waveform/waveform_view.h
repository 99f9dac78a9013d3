// The live view of the waveform: 1024 samples of one input, summary, records of the waveform data file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "chart/chart.h"
#include "link/link.h"
#include "live/frame_messages.h"
#include "live/harmonics_options.h"
#include "live/live_view.h"
#include "live/wave_summary.h"
#include "live/waveform/waveform_frame.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

class WaveformView : public LiveView {
 public:
  // All outlive the view.
  WaveformView(const Platform& platform, Link& link, const HarmonicsOptions& options,
               const SampleClock& sample_clock, Window& meter_rec)
      : link_(link),
        options_(options),
        window_(meter_rec),
        summary_(link.status, sample_clock, meter_rec),
        messages_(platform) {}
  WaveformView(const WaveformView&) = delete;
  WaveformView& operator=(const WaveformView&) = delete;

  void begin() override;
  bool shows_frame() const override { return frame_ != nullptr; }
  FrameOutcome take_frame() override;
  Misfit misfit() const override { return {}; }
  RecordSource source() const override;
  std::string header() override;
  RecordLine record() const override;

  // Of the newest frame, in the unit of its peaks' texts; empty before the first one, and over range.
  const std::vector<double>& samples() const { return scaled_; }

  // Of the newest frame.
  const WaveTexts& texts() const { return summary_.texts(); }

 private:
  FrameOutcome discard(const WaveformFault& fault);
  void show();

  Link& link_;
  const HarmonicsOptions& options_;
  Window& window_;
  WaveSummary summary_;
  FrameMessages messages_;
  std::unique_ptr<const WaveformFrame> frame_;  // the newest one
  std::vector<double> scaled_;
};

}  // namespace halden
