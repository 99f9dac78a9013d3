// Everything of the link to the meter, in the order it is built: its state, and the objects that work on it.
#pragma once

#include "link/exchange.h"
#include "link/exchange_gate.h"
#include "link/link_state.h"
#include "link/meter_status.h"
#include "link/polling.h"
#include "link/polling_pause.h"
#include "link/status_query.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "screen/meter_rec/columns.h"
#include "screen/window.h"

namespace halden {

struct Link {
  // The windows and the columns outlive the link.
  Link(const Platform& platform, Window& meter_rec, Window& notice, const LabelColumns& label_column_left)
      : gate(platform.clock),
        waits(platform.clock, platform.port),
        polling(platform, waits, state),
        query(platform, waits, polling, state, status, meter_rec, notice, label_column_left),
        exchange(polling, query),
        pause(polling, gate, meter_rec) {}
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  LinkState state;
  MeterStatus status;
  ExchangeGate gate;
  Waits waits;
  Polling polling;
  StatusQuery query;
  Exchange exchange;
  PollingPause pause;
};

}  // namespace halden
