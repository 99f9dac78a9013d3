// The harmonics and waveform views while they have no display: their frames are received and dropped, and
// their data files get header lines only.
#pragma once

#include <string>

#include "link/link.h"
#include "live/live_view.h"
#include "live/view_selection.h"
#include "screen/window.h"

namespace halden {

class UnshownView : public LiveView, public LiveListener {
 public:
  // `kind` is harmonics or waveform. All outlive the view.
  UnshownView(RecordKind kind, Link& link, const HarmonicsOptions& options, const Window& meter_rec)
      : kind_(kind), link_(link), options_(options), meter_rec_(meter_rec) {
    link.query.on_status_read([this] { sent_power_frames_ = false; });
  }
  UnshownView(const UnshownView&) = delete;
  UnshownView& operator=(const UnshownView&) = delete;

  FrameOutcome take_frame() override;
  Misfit misfit() const override;
  RecordKind record_kind() const override { return kind_; }
  std::string header() override;
  RecordLine record() const override { return {}; }

  // Remembers what the live buffer holds: it is emptied again and again while no whole frame comes.
  void no_communication() override { sent_power_frames_ = holds_power_frame(); }

 private:
  bool holds_power_frame() const;

  RecordKind kind_;
  Link& link_;
  const HarmonicsOptions& options_;
  const Window& meter_rec_;
  bool sent_power_frames_ = false;
};

}  // namespace halden
