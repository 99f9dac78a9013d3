#include "logger/harmonics_conversion.h"

#include <cmath>

#include "formats/file_headers.h"
#include "logger/recorded_settings.h"
#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/scaled_text.h"
#include "readings/wave_texts.h"

namespace halden {

namespace {

constexpr std::size_t rms_word = 0;
constexpr std::size_t peak_plus_word = 1;
constexpr std::size_t peak_minus_word = 2;
constexpr std::size_t first_order_word = 3;
constexpr std::size_t thd_word = 54;
constexpr std::size_t frequency_word = 55;
constexpr std::size_t range_word = 58;

constexpr double thd_of_100_percent = 1000;

// In its two top bits.
float recorded_clamp_factor(std::int16_t clamp_flags) {
  constexpr std::array<float, 4> factors = {1.0F, 1.0F, 3.0F, 1.2F};
  return factors[static_cast<std::uint16_t>(clamp_flags) >> 14U];
}

std::string_view range_text(int range) {
  if (range < 0 || range > 100) return "   ?      ";
  return range <= 50 ? " 0 to 50" : " 50 to 100";
}

}  // namespace

HarmonicsConversion::HarmonicsConversion(const MeterStatus& status)
    : scaling_{recorded_ratio(status.logger_ct_ratio),
               recorded_ratio(status.logger_pt_ratio),
               recorded_clamp_factor(status.logger_clamp_flags),
               status.logger_current_range,
               Wiring{status.logger_system},
               status.md_period},
      channel_(status.logger_channel),
      frequency_code_(status.logger_frequency_code),
      sample_seconds_(status.logger_sample_seconds) {
  scaling_.product_limit = ProductLimit::none;  // each record has texts of its own
}

std::string HarmonicsConversion::header() const {
  const std::string md = format_pattern(scaling_.md_period, "####0");
  const std::string sec = format_pattern(sample_seconds_, "####0");
  const std::string ct = format_pattern(scaling_.ct_ratio, "###0");
  const std::string vt = format_pattern(scaling_.pt_ratio, "###0");
  const WaveSource source{.wiring_system = scaling_.wiring_system, .harmonic_channel = channel_};
  return header_lines(
      stored_harmonics_settings_line(source, {recorded_frequency_text(frequency_code_), md, sec, ct, vt}),
      stored_harmonics_column_line());
}

std::optional<RecordLine> HarmonicsConversion::add_word(std::int16_t word, std::string_view date,
                                                        std::string_view time) {
  record_[words_++] = word;
  if (words_ < record_.size()) return std::nullopt;
  words_ = 0;
  ++records_;
  return record_line(date, time);
}

std::string HarmonicsConversion::count_text() const {
  return format_pattern(static_cast<double>(records_), "0") + " records converted";
}

RecordLine HarmonicsConversion::record_line(std::string_view date, std::string_view time) const {
  RecordLine line;
  const auto add = [&line](std::string_view text) {
    line.text += record_field(text);
    line.sign_cut = line.sign_cut || loses_sign(text);
  };
  add(date);
  add(time);
  add(scaled_text(rms_word));
  add(scaled_text(peak_plus_word));
  add("-" + scaled_text(peak_minus_word));
  add(format_pattern(record_[thd_word] / 10.0, "##0.0") + "%");
  add(fundamental_text());
  add(format_pattern(record_[frequency_word] / 10.0, "#0.0Hz"));
  add(range_text(record_[range_word]));
  for (std::size_t order = 0; order < stored_order_count; ++order)
    add(format_pattern(record_[first_order_word + order] / 100.0, "##0.0"));
  return line;
}

std::string HarmonicsConversion::scaled_text(std::size_t position) const {
  const double raw = record_[position];
  return raw == over_range ? std::string(overload_text) : value_text(raw);
}

// RMS is the root of the sum of the squares of the fundamental and of all other orders, and THD-F the ratio
// of these two. A fundamental of -1 is a number, since it is not the meter that sends it.
std::string HarmonicsConversion::fundamental_text() const {
  const double rms = record_[rms_word], thd = record_[thd_word];
  if (rms == over_range) return std::string(overload_text);
  return value_text(round_half_even(rms * thd_of_100_percent / std::hypot(thd, thd_of_100_percent)));
}

std::string HarmonicsConversion::value_text(double raw) const {
  const auto text = is_current(channel_) ? current_text_of(scaling_, raw) : voltage_text_of(scaling_, raw);
  return text.value_or("");  // without a limit there always is one
}

}  // namespace halden
