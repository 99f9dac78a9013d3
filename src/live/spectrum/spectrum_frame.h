// Cuts a harmonics frame into its fields; knows nothing of the port and of windows.
//
// A frame is text: "B", tagged fields, a hundred orders, two more fields, "E". Numbers are padded to the
// width of their field; the components of the orders are as long as they are.
//
//   BO=    0R=  2301P=  3254N=  3254H=     1 00 0000000 0000000 01 0009112 -004210 ... T=    32V=  2300E
//
// O is the channel, R the RMS value, P and N the peaks, H the frequency code, T the distortion, V the
// fundamental. There is no checksum: a frame is used only when every field and component in it is a number.
#pragma once

#include <cstddef>
#include <string_view>

#include "readings/harmonics.h"
#include "readings/wave_texts.h"

namespace halden {

enum class SpectrumFault {
  none,
  no_channel,          // no field for the channel
  order_out_of_place,  // the tag of an order is missing or more than 21 characters away
  damaged              // a field is missing or is no number, or a component has more than 16 bits
};

struct SpectrumFrame {
  SpectrumFault fault = SpectrumFault::none;
  WaveFields fields;
  HarmonicComponents components;
};

// `text` begins with the "B" of the frame and ends with its "E".
SpectrumFrame read_spectrum_frame(std::string_view text);

// Where a frame stands in what was received: from its "B" to behind its "E".
struct FramePlace {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The newest frame that has ended; `end` is 0 when none has.
FramePlace newest_spectrum_frame(std::string_view received);

}  // namespace halden
