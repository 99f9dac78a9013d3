// What the meter sends in harmonics mode: the spectrum of its selected input on " ", the waveform on "W".
//
// Harmonics frame, 1957 bytes of text:
//   "B", then "O=" and the input in 5 characters, "R=" RMS, "P=" positive peak, "N=" negative peak magnitude
//   and "H=" frequency code in 6 characters each (right-aligned, blanks in front), for every order 00..99 a
//   blank, the order in two digits, a blank, the cosine component, a blank, the sine component; components
//   have seven characters with leading zeros, so that no number can be mistaken for the tag of an order, "T="
//   THD-F in tenths of a percent and "V=" the fundamental's RMS in 6 characters each, "E".
//
//   "BO=    0R=  2301P=  3190N=  3190H=     1 00 0000000 0000000 01 0000564 0003203 ... T=    33V=  2299E"
//
// Waveform frame, 2108 bytes:
//   "B", one blank, 1024 samples of two bytes (high byte first, two's complement),
//   then for each tag O R P N H T V a blank, the tag, "=", 5 characters; a blank and "E".
#pragma once

#include <string>

#include "simulator/load.h"

namespace halden::simulator {

std::string harmonics_frame(const Load& load, const MeterSettings& settings, double uptime_s);

std::string waveform_frame(const Load& load, const MeterSettings& settings, double uptime_s);

}  // namespace halden::simulator
