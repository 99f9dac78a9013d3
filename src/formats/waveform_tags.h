// The tagged fields behind the samples of a waveform, in a frame of the meter as in a recorded one.
//
//   O=    0R= 2301P= 3254N= 3254H=    1T=   32V= 2300
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "readings/wave_texts.h"

namespace halden {

inline constexpr std::string_view waveform_tags = "ORPNHTV";
inline constexpr std::size_t waveform_field_width = 5;
inline constexpr std::size_t waveform_tag_length = 2;  // letter and "="

// The characters behind each tag, as received.
using WaveformCharacters = std::array<std::string, waveform_tags.size()>;

// Where the tags stand; the first one that is missing or has fewer than five characters behind it.
struct WaveformTagPlaces {
  std::array<std::size_t, waveform_tags.size()> at{};
  char missing = 0;  // one of waveform_tags
  bool cut = false;

  bool complete() const { return missing == 0 && !cut; }
};

// Searches them one behind the other, from `from` on.
WaveformTagPlaces find_waveform_tags(std::string_view text, std::size_t from);

// `places` are complete.
WaveformCharacters waveform_characters(std::string_view text, const WaveformTagPlaces& places);

// Nothing when one of them is no number.
std::optional<WaveFields> waveform_fields(const WaveformCharacters& characters);

}  // namespace halden
