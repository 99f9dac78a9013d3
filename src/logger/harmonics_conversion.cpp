#include "logger/harmonics_conversion.h"

#include <cmath>

#include "formats/file_headers.h"
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

std::string_view range_text(int range) {
  if (range < 0 || range > 100) return "   ?      ";
  return range <= 50 ? " 0 to 50" : " 50 to 100";
}

}  // namespace

HarmonicsConversion::HarmonicsConversion(const RecordedSettings& recorded)
    : recorded_(recorded), clock_(recorded_.start_date, recorded_.start_time) {}

std::string HarmonicsConversion::header() const {
  const WaveSource source{.wiring_system = recorded_.scaling.wiring_system,
                          .harmonic_channel = recorded_.channel};
  return header_lines(stored_harmonics_settings_line(source, recorded_texts(recorded_).views()),
                      stored_harmonics_column_line());
}

std::optional<RecordLine> HarmonicsConversion::take(std::int16_t word) {
  record_[words_taken_++] = word;
  if (words_taken_ < record_.size()) return {};
  words_taken_ = 0;
  RecordLine line = record_line();
  clock_.advance_record_time(recorded_.interval_s);
  return line;
}

std::optional<RecordLine> HarmonicsConversion::finish() {
  words_taken_ = 0;
  return {};
}

RecordLine HarmonicsConversion::record_line() const {
  RecordLine line;
  const auto add = [&line](std::string_view text) {
    line.text += record_field(text);
    line.sign_cut = line.sign_cut || loses_sign(text);
  };
  add(clock_.date_text());
  add(clock_.time_text());
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
  const auto text = is_current(recorded_.channel) ? current_text_of(recorded_.scaling, raw)
                                                  : voltage_text_of(recorded_.scaling, raw);
  return text.value_or("");  // without a limit there always is one
}

}  // namespace halden
