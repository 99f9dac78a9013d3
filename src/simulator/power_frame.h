// What the meter answers to the live request " " in power mode.
//
// One group of exactly 53 bytes per phase in use, one directly after another. A group is five fields of 9
// bytes with two blanks between them; a field is a label (V, I, W, P or Q and the phase digit), "=" and the
// value right-aligned in six characters:
//
//   "V1=  2301  I1=  8123  W1=  1812  P1=     0  Q1=   142"
//
// Units are those of RawPhase. A 3P4W or 3P3W frame is 159 bytes, 1P3W 106, 1P2W 53.
#pragma once

#include <string>

#include "simulator/load.h"

namespace halden::simulator {

std::string power_frame(const Load& load, const MeterSettings& settings, double uptime_s);

}  // namespace halden::simulator
