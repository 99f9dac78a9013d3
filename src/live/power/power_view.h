// The live view of the meter's power mode: readings of every frame, energies and demands of every sampling
// instant, and records of the power data file.
#pragma once

#include <string>

#include "link/link.h"
#include "live/live_view.h"
#include "live/power/power_monitor.h"
#include "live/sample_clock.h"

namespace halden {

// Is told of each whole power frame before it is recorded.
class PowerFrameListener {
 public:
  virtual ~PowerFrameListener() = default;
  virtual void power_frame_shown() = 0;
};

class PowerView : public LiveView {
 public:
  // All outlive the view. A click on "<- Reset" clears what the program accumulates.
  PowerView(Link& link, PowerChain& chain, const SampleClock& sample_clock, PowerFrameListener& listener,
            Window& meter_rec)
      : state_(link.state),
        status_(link.status),
        chain_(chain),
        sample_clock_(sample_clock),
        listener_(listener),
        window_(meter_rec),
        monitor_(link.waits, link.polling, link.state, link.status, chain, meter_rec) {
    window_.on_click("reset_kwh", [this] { reset_kwh(); });
    link.query.on_status_read([this] {
      other_mode_ = false;
      monitor_.forget_other_phases();
    });
  }
  PowerView(const PowerView&) = delete;
  PowerView& operator=(const PowerView&) = delete;

  FrameOutcome take_frame() override;
  Misfit misfit() const override { return {other_mode_, monitor_.other_phase_count()}; }
  RecordSource source() const override { return {}; }

  // For an unknown wiring system the columns are those of the last header.
  std::string header() override;
  RecordLine record() const override;

  // Clears energies and demands, and the panels that show them.
  void reset_kwh();

 private:
  void write_header();
  void follow_sampling_instant();
  void advance_energy_and_demand();

  LinkState& state_;
  const MeterStatus& status_;
  PowerChain& chain_;
  const SampleClock& sample_clock_;
  PowerFrameListener& listener_;
  Window& window_;
  PowerMonitor monitor_;
  bool other_mode_ = false;
  std::string energy_instant_;  // the sampling instant that energies and demands last advanced at
  std::string header_line_;     // the column names of the last known wiring system
};

}  // namespace halden
