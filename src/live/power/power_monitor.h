// Reads the power frames in poll_buffer and shows them on the value panels.
#pragma once

#include <cstddef>
#include <string>

#include "link/link_state.h"
#include "link/meter_status.h"
#include "link/polling.h"
#include "link/waits.h"
#include "live/power/power_frame.h"
#include "readings/power_chain.h"
#include "screen/window.h"

namespace halden {

enum class PowerFrame {
  complete,      // every value of every phase in use was read: the system values are shown
  damaged,       // the frame has ended, but a value is missing
  incomplete,    // it is still arriving, or what has arrived is none
  of_harmonics,  // the meter is in its other mode
  harmonics_arriving
};

class PowerMonitor {
 public:
  PowerMonitor(Waits& waits, Polling& polling, LinkState& state, const MeterStatus& status, PowerChain& chain,
               Window& meter_rec)
      : waits_(waits),
        polling_(polling),
        buffer_(state.poll_buffer),
        status_(status),
        chain_(chain),
        window_(meter_rec) {}

  // Shows the newest frame in poll_buffer as far as it has arrived. One that has ended is taken off there,
  // and the next one requested before anything is worked out, so that the meter prepares it meanwhile. A
  // harmonics frame is dropped.
  PowerFrame handle_frame();

  // The meter's settings were read again: what was found about its frames no longer counts.
  void forget_other_phases() { other_phase_count_ = 0; }

  // How many phases the meter sends, when that is not the number in use; 0 otherwise.
  std::size_t other_phase_count() const { return other_phase_count_; }

 private:
  PowerFrameText read_arriving_frame();
  void show(const PowerFrameText& frame);
  void show_phase(std::size_t phase, const PhaseTexts& texts);
  void show_system();

  Waits& waits_;
  Polling& polling_;
  std::string& buffer_;
  const MeterStatus& status_;
  PowerChain& chain_;
  Window& window_;
  std::size_t other_phase_count_ = 0;
};

}  // namespace halden
