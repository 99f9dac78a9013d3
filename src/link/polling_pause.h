// Live polling stands still while a window is open that asks for it, unless a recording runs, which would
// miss its records: then it goes on, also when the recording starts later.
#pragma once

#include <vector>

#include "link/exchange_gate.h"
#include "link/polling.h"
#include "screen/window.h"

namespace halden {

class PollingPause {
 public:
  // All outlive this.
  PollingPause(Polling& polling, ExchangeGate& gate, const Window& meter_rec)
      : polling_(polling), gate_(gate), meter_rec_(meter_rec) {}

  // Polling stops, and goes on when each of the windows for which it stopped has been closed. Such a window
  // has the control polling_note.
  void begin(Window& window);
  void end(Window& window);

  // For a recording that starts: polling goes on, whatever windows are open.
  void end_all();

 private:
  bool recording_runs() const { return meter_rec_["FileStop"].enabled; }
  void apply();

  Polling& polling_;
  ExchangeGate& gate_;
  const Window& meter_rec_;
  std::vector<Window*> windows_;  // for which polling stands still
};

}  // namespace halden
