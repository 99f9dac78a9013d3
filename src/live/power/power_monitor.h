// Reads the groups of a power frame and shows their values on the panels, phase by phase.
//
// A frame is text made of labelled fields: two characters ("V", "I", "W", "P" or "Q" and the phase digit),
// one separator, six value characters. One group of five fields per phase in use, in the order of the phases:
//
//   V1=  2301  I1= 12340  W1=  2781  P1=     0  Q1=   116V2=  2298  ...
//
// V in 0.1 V; I and W in 0.1 mA and 0.1 W times ten to the current range; P and Q, the angles of voltage and
// current, in tenths of a degree.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "link/link_state.h"
#include "link/meter_status.h"
#include "link/polling.h"
#include "link/waits.h"
#include "readings/power_chain.h"
#include "screen/window.h"

namespace halden {

// What a power frame held. With `complete` the last phase of the wiring system was read, the next frame
// requested and the system values shown; `partial` means other groups only.
enum class PowerFrame { complete, partial, without_group, of_harmonics };

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

  // Parses the frame in poll_buffer and removes it; a harmonics frame is dropped. Requests the next frame as
  // soon as the last phase of the wiring system has been read, so that the meter prepares it while the system
  // values are calculated.
  PowerFrame handle_frame();

 private:
  bool take_group(std::size_t phase);
  void read_angles(std::size_t phase, PhaseGroup& group);
  void show_phase(std::size_t phase, const PhaseTexts& texts);
  void finish_frame();

  void wait_and_drain();
  std::size_t group_end() const;
  std::optional<double> field(char symbol, std::size_t phase) const;

  Waits& waits_;
  Polling& polling_;
  std::string& buffer_;
  const MeterStatus& status_;
  PowerChain& chain_;
  Window& window_;
  bool group_came_first_ = false;  // the buffer began with the group that is being read
};

}  // namespace halden
