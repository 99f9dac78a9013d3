// Cuts a waveform frame into samples and fields; knows nothing of the port and of windows.
//
//   "B", one byte, 1024 samples of two bytes (high byte first, two's complement), then the tags O, R, P, N,
//   H, T and V, each with "=" and five characters, then "E"; a blank may stand before each tag and before "E"
//
// "B" and "E" bytes also occur inside the samples, so the end is searched for behind them; a "B" there begins
// the next frame. There is no checksum: a lost sample byte would swap the bytes of all samples behind it, so
// the channel's tag must stand right behind the last sample, with no fewer bytes between than stand between
// the other fields, and these must be equally far apart.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/wave_files.h"
#include "readings/wave_texts.h"

namespace halden {

struct WaveformFault {
  bool damaged = false;  // also with a missing tag
  char missing_tag = 0;  // one of waveform_tags
  bool cut = false;      // it ends before its "E", or before a field does
};

struct WaveformFrame {
  WaveformFault fault;
  std::array<std::int16_t, waveform_samples> samples{};
  WaveformCharacters characters;  // of each tag, as received
  WaveFields fields;
  std::size_t end = 0;  // behind its "E"; 0 when it has none
};

// Whether `bytes` begin with a "B" and have an "E" behind the samples.
bool holds_waveform(std::string_view bytes);

// `bytes` begin with the "B" of the frame; what follows its "E" is not looked at.
WaveformFrame read_waveform_frame(std::string_view bytes);

}  // namespace halden
