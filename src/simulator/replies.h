// What the meter answers to each request: frames of readings and the status reply, byte for byte.
#pragma once

#include <string>

#include "simulator/load.h"

namespace halden::simulator {

// The answer to " " in power mode.
//
// One group of exactly 53 bytes per phase in use, one directly after another. A group is five fields of 9
// bytes with two blanks between them; a field is a label (V, I, W, P or Q and the phase digit), "=" and the
// value right-aligned in six characters:
//
//   "V1=  2301  I1=  8123  W1=  1812  P1=     0  Q1=   142"
//
// Units are those of RawPhase. A 3P4W or 3P3W frame is 159 bytes, 1P3W 106, 1P2W 53.
std::string power_frame(const Load& load, const MeterSettings& settings, double uptime_s);

// The answer to " " in harmonics mode: the spectrum of the selected input in 1957 bytes of text.
//
//   "B", then "O=" and the input in 5 characters, "R=" RMS, "P=" positive peak, "N=" negative peak magnitude
//   and "H=" frequency code in 6 characters each (right-aligned, blanks in front), for every order 00..99 a
//   blank, the order in two digits, a blank, the cosine component, a blank, the sine component; components
//   have seven characters with leading zeros, so that no number can be mistaken for the tag of an order, "T="
//   THD-F in tenths of a percent and "V=" the fundamental's RMS in 6 characters each, "E".
//
//   "BO=    0R=  2301P=  3190N=  3190H=     1 00 0000000 0000000 01 0000564 0003203 ... T=    33V=  2299E"
std::string harmonics_frame(const Load& load, const MeterSettings& settings, double uptime_s);

// The answer to "W" in harmonics mode: the waveform of the selected input in 2108 bytes.
//
//   "B", one blank, 1024 samples of two bytes (high byte first, two's complement),
//   then for each tag O R P N H T V a blank, the tag, "=", 5 characters; a blank and "E".
std::string waveform_frame(const Load& load, const MeterSettings& settings, double uptime_s);

// The answer to "?": the complete state, `uptime_s` seconds after the moment of settings.clock_start.
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
//
// Fields 29 to 34 are the start of the selected file, and the meter's clock while no file is stored.
std::string status_reply(const MeterSettings& settings, double uptime_s);

}  // namespace halden::simulator
