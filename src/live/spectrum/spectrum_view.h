// The live view of the harmonics: chart and cursor of one input's orders, summary, records of the harmonics
// data file.
#pragma once

#include <cstdint>
#include <string>

#include "link/link.h"
#include "live/frame_messages.h"
#include "live/live_view.h"
#include "live/spectrum/spectrum_frame.h"
#include "live/view_selection.h"
#include "live/wave_summary.h"
#include "platform/platform.h"
#include "readings/harmonics.h"
#include "screen/window.h"

namespace halden {

class SpectrumView : public LiveView, public LiveListener {
 public:
  // All outlive the view. Connects the order cursor and the switches beside the chart.
  SpectrumView(const Platform& platform, Link& link, HarmonicsOptions& options,
               const SampleClock& sample_clock, Window& meter_rec);
  SpectrumView(const SpectrumView&) = delete;
  SpectrumView& operator=(const SpectrumView&) = delete;

  void begin() override;
  bool shows_frame() const override { return has_frame_; }
  FrameOutcome take_frame() override;
  Misfit misfit() const override;
  RecordSource source() const override;
  std::string header() override;
  RecordLine record() const override;

  // Remembers what the live buffer holds: it is emptied again and again while no whole frame comes.
  void no_communication() override { sent_power_frames_ = holds_power_frame(); }

  // Of the newest frame.
  const HarmonicValues& values() const { return values_; }
  const WaveTexts& texts() const { return summary_.texts(); }

 private:
  void connect();
  SpectrumFrame read_newest();
  FrameOutcome discard(SpectrumFault fault);
  void show_chart();
  void show_cursor();
  std::size_t marked_order() const;
  bool holds_power_frame() const;

  Link& link_;
  HarmonicsOptions& options_;
  Window& window_;
  WaveSummary summary_;
  FrameMessages messages_;
  HarmonicValues values_;
  int channel_ = 0;
  bool has_frame_ = false;
  bool sent_power_frames_ = false;
};

}  // namespace halden
