// What the meter answers to "?": its complete state.
//
// 35 fields, each followed by one blank. A field is a decimal number of five digits with leading zeros; a
// wider value is as wide as it is. 210 bytes unless a value is wider:
//
//    1 mode                  10 harmonic order         19 recorded CT ratio      28 selected file
//    2 input channel         11 0                      20 recorded interval, s   29 year (2026 is 00026)
//    3 wiring                12 demand period          21 recorded clamp         30 month
//    4 frequency code        13 recorded data type     22 0                      31 day
//    5 0                     14 recorded channel       23 0                      32 hour
//    6 PT ratio              15 recorded wiring        24 current range          33 minute
//    7 CT ratio              16 recorded frequency     25 0                      34 second
//    8 sampling, s           17 recorded range x 256   26 0                      35 number of stored files
//    9 0                     18 recorded PT ratio      27 clamp (bits 9 and 10)
#pragma once

#include <string>

#include "simulator/meter_settings.h"

namespace halden::simulator {

// `uptime_s` seconds after the moment of settings.clock_start.
std::string status_reply(const MeterSettings& settings, double uptime_s);

}  // namespace halden::simulator
