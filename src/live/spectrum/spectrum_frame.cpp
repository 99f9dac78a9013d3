#include "live/spectrum/spectrum_frame.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <utility>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t tag_length = 2;
constexpr std::size_t channel_width = 5;
constexpr std::size_t field_width = 6;
constexpr std::size_t order_tag_length = 3;
constexpr std::size_t farthest_tag = 21;  // from the end of the order before

// Reads one field after the other, each searched for from the end of the one before.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool find(std::string_view tag) {
    const std::size_t at = text_.find(tag, at_);
    if (at == std::string_view::npos) return false;
    at_ = at;
    return true;
  }

  // The number behind a tag of two characters that stands where the reader is, or later.
  std::optional<double> field(std::string_view tag, std::size_t width) {
    if (!find(tag) || at_ + tag_length + width > text_.size()) return std::nullopt;
    const std::string_view characters = text_.substr(at_ + tag_length, width);
    at_ += tag_length + width;
    return field_number(characters);
  }

  // Whether the tag of the order begins at most 21 characters further on.
  bool order(std::size_t k) {
    const std::array<char, order_tag_length> tag = {' ', static_cast<char>('0' + k / 10),
                                                    static_cast<char>('0' + k % 10)};
    const std::size_t began = at_;
    if (!find({tag.data(), tag.size()}) || at_ - began > farthest_tag) return false;
    at_ += order_tag_length;
    return true;
  }

  // A number with blanks before it; it ends at a blank or at the tag that follows the last order.
  std::optional<std::int16_t> component() {
    const std::size_t begin = text_.find_first_not_of(' ', at_);
    if (begin == at_ || begin == std::string_view::npos) return std::nullopt;
    at_ = std::min(text_.find_first_of(" T", begin), text_.size());
    const std::optional<double> number = field_number(text_.substr(begin, at_ - begin));
    return number ? to_int16(*number) : std::nullopt;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

// False when one of them is missing.
bool read_fields(Reader& reader, std::initializer_list<std::pair<std::string_view, double*>> fields) {
  for (const auto& [tag, value] : fields) {
    const std::optional<double> number = reader.field(tag, field_width);
    if (!number) return false;
    *value = *number;
  }
  return true;
}

SpectrumFault read_orders(Reader& reader, HarmonicComponents& components) {
  for (std::size_t k = 0; k < harmonic_orders; ++k) {
    if (!reader.order(k)) return SpectrumFault::order_out_of_place;
    const std::optional<std::int16_t> cos = reader.component();
    const std::optional<std::int16_t> sin = cos ? reader.component() : std::nullopt;
    if (!sin) return SpectrumFault::damaged;
    components.cos[k] = *cos;
    components.sin[k] = *sin;
  }
  return SpectrumFault::none;
}

SpectrumFault read_all(Reader& reader, SpectrumFrame& frame) {
  if (!reader.find("O=")) return SpectrumFault::no_channel;
  const std::optional<double> channel = reader.field("O=", channel_width);
  WaveFields& fields = frame.fields;
  double frequency = 0;
  const bool head = read_fields(
      reader,
      {{"R=", &fields.rms}, {"P=", &fields.peak_plus}, {"N=", &fields.peak_minus}, {"H=", &frequency}});
  if (!channel || !head) return SpectrumFault::damaged;
  fields.channel = static_cast<int>(*channel);
  fields.frequency_code = static_cast<int>(frequency);
  const SpectrumFault orders = read_orders(reader, frame.components);
  if (orders != SpectrumFault::none) return orders;
  const bool tail = read_fields(reader, {{"T=", &fields.thd_tenths}, {"V=", &fields.fundamental}});
  return tail ? SpectrumFault::none : SpectrumFault::damaged;
}

}  // namespace

SpectrumFrame read_spectrum_frame(std::string_view text) {
  SpectrumFrame frame;
  Reader reader(text);
  frame.fault = read_all(reader, frame);
  return frame;
}

FramePlace newest_spectrum_frame(std::string_view received) {
  const std::size_t last = received.find_last_of('E');
  if (last == std::string_view::npos) return {};
  const std::size_t begin = received.substr(0, last).find_last_of('B');
  if (begin == std::string_view::npos) return {};
  return {begin, received.find('E', begin) + 1};
}

}  // namespace halden
