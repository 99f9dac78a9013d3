#include "live/waveform/waveform_frame.h"

#include <algorithm>

namespace halden {

namespace {

constexpr std::size_t first_sample = 2;
constexpr std::size_t samples_end = first_sample + 2 * waveform_samples;
constexpr std::size_t farthest_channel_tag = 2060;
constexpr std::size_t usual_length = 2108;  // with a blank before each tag and before "E"

std::int16_t sample_at(std::string_view bytes, std::size_t at) {
  const auto high = static_cast<unsigned char>(bytes[at]), low = static_cast<unsigned char>(bytes[at + 1]);
  const int value = high * 256 + low;
  return static_cast<std::int16_t>(value > 32767 ? value - 65536 : value);
}

bool is_separator(char c) { return static_cast<unsigned char>(c) <= ' '; }

// A field that has lost a character is shorter than the others.
bool equally_far_apart(const WaveformTagPlaces& tags) {
  for (std::size_t k = 2; k < tags.at.size(); ++k)
    if (tags.at[k] - tags.at[k - 1] != tags.at[1] - tags.at[0]) return false;
  return true;
}

// A frame of the usual length has lost nothing, wherever its blanks stand.
bool nothing_is_lost(std::string_view bytes, const WaveformTagPlaces& tags, std::size_t end) {
  const std::size_t channel = tags.at[0];
  const std::size_t between_fields = tags.at[1] - channel - waveform_tag_length - waveform_field_width;
  const auto gap = bytes.substr(samples_end, channel - samples_end);
  return channel <= farthest_channel_tag && std::all_of(gap.begin(), gap.end(), is_separator) &&
         (end >= usual_length || (gap.size() >= between_fields && equally_far_apart(tags)));
}

}  // namespace

bool holds_waveform(std::string_view bytes) {
  return bytes.starts_with('B') && bytes.find('E', samples_end) != std::string_view::npos;
}

WaveformFrame read_waveform_frame(std::string_view bytes) {
  WaveformFrame frame;
  if (bytes.size() < samples_end) {
    frame.fault = {true, 0, true};
    return frame;
  }
  for (std::size_t i = 0; i < waveform_samples; ++i)
    frame.samples[i] = sample_at(bytes, first_sample + 2 * i);
  // The fields of the next frame must not stand in for missing ones. It begins with a "B", before which a
  // frame that has lost its "E" ends.
  const std::size_t last = bytes.find_first_of("BE", samples_end);
  const bool ended = last != std::string_view::npos && bytes[last] == 'E';
  if (ended) frame.end = last + 1;
  bytes = bytes.substr(0, ended ? frame.end : last);
  const WaveformTagPlaces tags = find_waveform_tags(bytes, samples_end);
  frame.fault = {!tags.complete() || !ended, tags.missing, tags.cut || (tags.missing == 0 && !ended)};
  if (frame.fault.damaged) return frame;
  frame.characters = waveform_characters(bytes, tags);
  const std::optional<WaveFields> fields = waveform_fields(frame.characters);
  frame.fault.damaged = !nothing_is_lost(bytes, tags, frame.end) || !fields;
  if (fields) frame.fields = *fields;
  return frame;
}

}  // namespace halden
