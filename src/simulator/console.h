// The buttons of the simulated meter as one-line commands, typed or sent on the standard input of
// halden-meter.
//
//   mode power|harmonics
//   wiring 1P2W|1P3W|3P3W|3P4W
//   channel 0..5                input of the harmonics mode: V1 I1 V2 I2 V3 I3
//   silence on|off
//   garbage on|off
//   fault NAME[=VALUE]|none     see switch_on; none switches all faults off
//   raw PHASE V I W P Q         fixes phase 1..3 at these raw numbers
//   raw off                     lets the load drift again
//   log                         shows the received bytes
//   transient                   presses the button that sends the transient report
//   unplug SECONDS
//   quit
//
// Each command is answered by one line: "ok", for log the number of bytes and the bytes as quoted text, or a
// line that begins with "error: ".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/meter.h"

namespace halden::simulator {

struct ConsoleAnswer {
  std::string text = "ok";  // without line end
  bool quit = false;
  bool press_transient = false;    // Meter::press_transient is to be called
  std::optional<double> unplug_s;  // how long the cable is to be unplugged
};

// An empty line is not a command; the text of its answer is empty.
ConsoleAnswer apply_command(std::string_view line, Meter& meter);

}  // namespace halden::simulator
