// Opening the serial port: the one stored from last time at start-up, and another one from the COM menu.
#pragma once

#include <string>

#include "app/configuration.h"
#include "app/status_line.h"
#include "link/link.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "screen/window.h"

namespace halden {

class PortChoice {
 public:
  // All outlive this. Connects the COM menu of the main window. The notice names the port that is opened.
  PortChoice(const Platform& platform, Link& link, Configuration& configuration, StatusLine& status_line,
             Window& meter_rec, Window& notice)
      : platform_(platform),
        link_(link),
        configuration_(configuration),
        status_line_(status_line),
        window_(meter_rec),
        notice_(notice) {
    connect();
  }
  PortChoice(const PortChoice&) = delete;
  PortChoice& operator=(const PortChoice&) = delete;

  // The last part of the start-up: opens the stored port (or `first_port` where none is stored), asks the
  // meter for its status and starts polling. Without a port, or when it does not open, the user is told and
  // polling stays off.
  void open_stored(int first_port);

  // The COM menu: opens port `number`; when that fails the port that was open before is opened again.
  void choose(int number);

  // Writes the device behind each COM entry, and whether it is there, into the entry's tooltip, and marks
  // those that are there.
  void describe_ports();

 private:
  void connect();
  Afterwards try_stored(const std::string& stored);
  Afterwards try_chosen(int number);
  PortRefusal open(int number);
  void tell_refusal(int number, PortRefusal refusal);
  void fall_back(int number, int old);
  void show_chosen(int number);
  void wait_until_open();

  Platform platform_;
  Link& link_;
  Configuration& configuration_;
  StatusLine& status_line_;
  Window& window_;
  Window& notice_;
  int number_ = 0;  // of the port that is open; 0 when none
};

}  // namespace halden
