// The setting commands of the meter: a letter, the new value as digits, a carriage return.
//
//   "C100\r"    CT ratio
//   "V10\r"     PT ratio
//   "M15\r"     demand period in minutes
//   "S2\r"      sampling interval in seconds
//   "F1\r"      50 Hz, "F2\r" 60 Hz, any other number automatic
//
// A command takes effect at its carriage return. One without digits, with anything else between letter and
// carriage return, with more than five digits, or setting a ratio or time to 0, changes nothing.
#pragma once

#include <string>

#include "simulator/meter_settings.h"

namespace halden::simulator {

class SettingCommands {
 public:
  // Takes one received byte. False when it does not belong to a setting command.
  bool take(char byte, double now_s, MeterSettings& settings);

 private:
  void drop_stale(double now_s);

  char letter_ = '\0';  // of the command being received; '\0' when there is none
  std::string value_;
  double last_byte_s_ = 0.0;
};

}  // namespace halden::simulator
