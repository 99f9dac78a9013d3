// The simulated meter behind a pseudo-terminal, so that the real serial code can talk to it.
#pragma once

#include <string>

#include "simulator/meter.h"
#include "simulator/pty.h"

namespace halden::simulator {

class PtyMeter {
 public:
  // The meter outlives this. A link path that is not empty becomes a symbolic link to the device.
  PtyMeter(Meter& meter, std::string link_path);

  // Opens the device, makes the link in place of a stale one, prints the path of the device as the first line
  // on standard output, and serves until "quit" on standard input, SIGTERM or SIGINT; the end of standard
  // input does not end it. The answers to commands (console.h) go to standard output, and "plugged DEVICE"
  // when the device is back after "unplug". At the end device and link are removed. Empty when it ended by
  // one of these, otherwise one sentence.
  std::string run();

 private:
  std::string open();
  void unplug();
  std::string make_link() const;
  void remove_link() const;
  std::string plug_back(double now_s);
  double wait_s(double now_s) const;
  bool take_console(double now_s);

  Meter& meter_;
  std::string link_path_;
  Pty pty_;
  bool console_open_ = true;
  std::string console_text_;  // a line that is not complete yet
  double plug_back_s_ = 0.0;  // while the device is closed
};

}  // namespace halden::simulator
