// Opening the serial port: the one stored from last time at start-up, and another one from the COM menu.
#pragma once

#include <string>

#include "app/configuration.h"
#include "app/status_line.h"
#include "link/link_state.h"
#include "link/polling.h"
#include "link/status_query.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "screen/window.h"

namespace halden {

class PortChoice {
 public:
  PortChoice(const Platform& platform, Waits& waits, Polling& polling, StatusQuery& query, LinkState& state,
             Configuration& configuration, StatusLine& status_line, Window& meter_rec)
      : platform_(platform),
        waits_(waits),
        polling_(polling),
        query_(query),
        state_(state),
        configuration_(configuration),
        status_line_(status_line),
        window_(meter_rec) {}

  // The last part of the start-up: opens the stored port (or `first_port` where none is stored), asks the
  // meter for its status and starts polling. Without a port, or when it does not open, the user is told and
  // polling stays off.
  void open_stored(int first_port);

  // The COM menu: opens port `number`; when that fails the port that was open before is opened again.
  void choose(int number);

  // Writes the device behind each COM entry, and whether it is there, into the entry's tooltip.
  void describe_ports();

 private:
  PortRefusal open(int number);
  void fall_back(int number, int old);
  void show_chosen(int number);
  void wait_until_open();

  Platform platform_;
  Waits& waits_;
  Polling& polling_;
  StatusQuery& query_;
  LinkState& state_;
  Configuration& configuration_;
  StatusLine& status_line_;
  Window& window_;
  int number_ = 0;  // of the port that is open; 0 when none
};

}  // namespace halden
