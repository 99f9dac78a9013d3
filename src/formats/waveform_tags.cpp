#include "formats/waveform_tags.h"

#include "readings/numbers.h"

namespace halden {

WaveformTagPlaces find_waveform_tags(std::string_view text, std::size_t from) {
  WaveformTagPlaces places;
  for (std::size_t k = 0; k < places.at.size(); ++k) {
    const std::array<char, waveform_tag_length> tag = {waveform_tags[k], '='};
    places.at[k] = text.find(std::string_view(tag.data(), tag.size()), from);
    if (places.at[k] == std::string_view::npos) {
      places.missing = waveform_tags[k];
      return places;
    }
    from = places.at[k] + waveform_tag_length + waveform_field_width;
    places.cut = from > text.size();
    if (places.cut) return places;
  }
  return places;
}

WaveformCharacters waveform_characters(std::string_view text, const WaveformTagPlaces& places) {
  WaveformCharacters characters;
  for (std::size_t k = 0; k < characters.size(); ++k)
    characters[k] = text.substr(places.at[k] + waveform_tag_length, waveform_field_width);
  return characters;
}

std::optional<WaveFields> waveform_fields(const WaveformCharacters& characters) {
  std::array<double, waveform_tags.size()> numbers{};
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    const std::optional<double> number = field_number(characters[k]);
    if (!number) return std::nullopt;
    numbers[k] = *number;
  }
  const auto& [channel, rms, plus, minus, frequency, thd, fundamental] = numbers;
  return WaveFields{static_cast<int>(channel),   rms, plus,       minus,
                    static_cast<int>(frequency), thd, fundamental};
}

}  // namespace halden
