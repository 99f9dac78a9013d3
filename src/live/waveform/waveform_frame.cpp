#include "live/waveform/waveform_frame.h"

#include <algorithm>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t first_sample = 2;
constexpr std::size_t samples_end = first_sample + 2 * waveform_samples;
constexpr std::size_t farthest_channel_tag = 2060;
constexpr std::size_t usual_length = 2108;  // with a blank before each tag and before "E"
constexpr std::size_t field_width = 5;
constexpr std::size_t tag_length = 2;

std::int16_t sample_at(std::string_view bytes, std::size_t at) {
  const auto high = static_cast<unsigned char>(bytes[at]), low = static_cast<unsigned char>(bytes[at + 1]);
  const int value = high * 256 + low;
  return static_cast<std::int16_t>(value > 32767 ? value - 65536 : value);
}

bool is_separator(char c) { return static_cast<unsigned char>(c) <= ' '; }

using TagPlaces = std::array<std::size_t, waveform_tags.size()>;

// Searches the tags one behind the other. The first one that is missing or cut is noted in the fault.
TagPlaces find_tags(std::string_view bytes, WaveformFault& fault) {
  TagPlaces places{};
  std::size_t at = samples_end;
  for (std::size_t k = 0; k < places.size(); ++k) {
    const std::array<char, tag_length> tag = {waveform_tags[k], '='};
    places[k] = bytes.find(std::string_view(tag.data(), tag.size()), at);
    if (places[k] == std::string_view::npos) {
      fault = {true, waveform_tags[k], false};
      return places;
    }
    at = places[k] + tag_length + field_width;
    if (at > bytes.size()) {
      fault = {true, 0, true};
      return places;
    }
  }
  return places;
}

// A field that has lost a character is shorter than the others.
bool equally_far_apart(const TagPlaces& tags) {
  for (std::size_t k = 2; k < tags.size(); ++k)
    if (tags[k] - tags[k - 1] != tags[1] - tags[0]) return false;
  return true;
}

// A frame of the usual length has lost nothing, wherever its blanks stand.
bool nothing_is_lost(std::string_view bytes, const TagPlaces& tags, std::size_t end) {
  const std::size_t channel = tags[0];
  const std::size_t between_fields = tags[1] - channel - tag_length - field_width;
  const auto gap = bytes.substr(samples_end, channel - samples_end);
  return channel <= farthest_channel_tag && std::all_of(gap.begin(), gap.end(), is_separator) &&
         (end >= usual_length || (gap.size() >= between_fields && equally_far_apart(tags)));
}

bool read_numbers(WaveformFrame& frame) {
  std::array<double, waveform_tags.size()> numbers{};
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    const std::optional<double> number = field_number(frame.characters[k]);
    if (!number) return false;
    numbers[k] = *number;
  }
  const auto& [channel, rms, plus, minus, frequency, thd, fundamental] = numbers;
  frame.fields = {static_cast<int>(channel), rms, plus, minus, static_cast<int>(frequency), thd, fundamental};
  return true;
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
  const TagPlaces tags = find_tags(bytes, frame.fault);
  if (!frame.fault.damaged && !ended) frame.fault = {true, 0, true};
  if (frame.fault.damaged) return frame;
  for (std::size_t k = 0; k < tags.size(); ++k)
    frame.characters[k] = bytes.substr(tags[k] + tag_length, field_width);
  frame.fault.damaged = !nothing_is_lost(bytes, tags, frame.end) || !read_numbers(frame);
  return frame;
}

}  // namespace halden
