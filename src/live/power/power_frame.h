// Cuts what the meter has sent in power mode into groups and fields; knows nothing of the port and of
// windows.
//
// A frame is text made of labelled fields: two characters ("V", "I", "W", "P" or "Q" and the phase digit),
// one separator, six value characters. One group of five fields per phase in use, in the order of the phases:
//
//   V1=  2301  I1= 12340  W1=  2781  P1=     0  Q1=   116V2=  2298  ...
//
// V in 0.1 V; I and W in 0.1 mA and 0.1 W times ten to the current range; P and Q, the angles of voltage and
// current, in tenths of a degree. There is no checksum, so what is not a number counts as missing.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "readings/power_chain.h"

namespace halden {

// The number in the six value characters: digits with at most one sign before them and blanks around. Nothing
// for any other text, and when the separator is a sign, a digit or a letter. `field` is separator and value.
std::optional<double> power_field_value(std::string_view field);

struct PowerGroup {
  std::size_t phase = 0;  // 0 to 2
  PhaseGroup values;      // a damaged field is missing
  std::size_t begin = 0;  // where its voltage label stands in the text, and what follows its last value
  std::size_t end = 0;

  bool whole() const { return values.v && values.i && values.w && values.v_angle && values.i_angle; }
};

// The newest frame of a text that may begin with the rest of an older one and end with the head of the next.
struct PowerFrameText {
  std::vector<PowerGroup> groups;  // of phase 1, 2, ..., as far as they have arrived in full
  std::size_t phases_sent = 0;     // when whole frames of this many groups come again and again; else 0
  bool ended = false;              // the group of the last phase in use has arrived

  // Whether every value of every phase in use can be read.
  bool whole() const;
};

// `phases` is the number of phases in use, 1 to 3.
PowerFrameText read_power_frame(std::string_view text, std::size_t phases);

}  // namespace halden
