// The commands of the meter that carry a number: a letter, the number as digits, a carriage return.
//
//   "C100\r"    CT ratio
//   "V10\r"     PT ratio
//   "M15\r"     demand period in minutes
//   "S2\r"      sampling interval in seconds
//   "F1\r"      50 Hz, "F2\r" 60 Hz, any other number automatic
//   "R07\r"     makes stored file 7 the selected one
//
// A command takes effect at its carriage return. One without digits, with anything else between letter and
// carriage return, with more than five digits, or setting a ratio or time to 0, changes nothing.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "simulator/meter_settings.h"

namespace halden::simulator {

class SettingCommands {
 public:
  // Takes one received byte. False when it does not belong to a command.
  bool take(char byte, double now_s, MeterSettings& settings);

  // The number of a complete "R" command, once.
  std::optional<int> take_selected_file() { return std::exchange(selected_file_, std::nullopt); }

 private:
  void drop_stale(double now_s);

  char letter_ = '\0';  // of the command being received; '\0' when there is none
  std::string value_;
  double last_byte_s_ = 0.0;
  std::optional<int> selected_file_;
};

}  // namespace halden::simulator
