#include "readings/wave_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr std::array<std::string_view, 6> input_names = {"V1", "I1", "V2", "I2", "V3", "I3"};

constexpr int frequency_50_hz = 1;
constexpr int frequency_60_hz = 2;

std::optional<std::string> scaled_text(const Scaling& scaling, int channel, double raw) {
  if (raw == over_range) return std::string(overload_text);
  return is_current(channel) ? current_text_of(scaling, raw) : voltage_text_of(scaling, raw);
}

// The power of ten of a unit against V or A.
int exponent_of(std::string_view unit) {
  const auto in = [unit](const UnitTable& units) {
    return static_cast<int>(std::find(units.begin(), units.end(), unit) - units.begin());
  };
  constexpr int unit_count = static_cast<int>(UnitTable().size());
  if (const int index = in(current_units); index < unit_count) return 3 * (index - 1);
  const int index = in(voltage_units);
  return index < unit_count ? 3 * index : 0;
}

double base_value(std::string_view text) {
  return leading_number(text) * std::pow(10.0, exponent_of(unit_of(text)));
}

}  // namespace

std::string_view input_name(int channel) {
  const bool known = channel >= 0 && channel < static_cast<int>(input_names.size());
  return known ? input_names[static_cast<std::size_t>(channel)] : std::string_view();
}

std::optional<int> channel_of(std::string_view input_name) {
  const auto found = std::find(input_names.begin(), input_names.end(), input_name);
  if (found == input_names.end()) return std::nullopt;
  return static_cast<int>(found - input_names.begin());
}

std::size_t phase_of_input(int channel) { return static_cast<std::size_t>(std::clamp(channel, 0, 5)) / 2; }

bool is_current(int channel) { return channel != 0 && channel != 2 && channel != 4; }

void update_wave_texts(const Scaling& scaling, const WaveFields& fields, WaveTexts& texts) {
  const auto update = [&](std::string& text, std::string_view sign, double raw) {
    if (const auto scaled = scaled_text(scaling, fields.channel, raw)) text = std::string(sign) + *scaled;
  };
  update(texts.rms, "", fields.rms);
  update(texts.peak_plus, "", fields.peak_plus);
  update(texts.peak_minus, "-", fields.peak_minus);
  update(texts.fundamental, "", fields.fundamental);
  texts.crest_factor = crest_factor_text(texts.peak_plus, texts.rms);
  texts.thd = format_pattern(fields.thd_tenths / 10, "##0.0") + "%";
  texts.hz = fields.frequency_code == frequency_50_hz   ? "50Hz"
             : fields.frequency_code == frequency_60_hz ? "60Hz"
                                                        : "AUTO";
}

std::string crest_factor_text(std::string_view peak, std::string_view rms) {
  if (leading_number(rms) == 0 || is_overload(peak)) return "OL";
  return format_pattern(base_value(peak) / base_value(rms), "###0.00");
}

std::string_view unit_of(std::string_view text) {
  const std::size_t last_digit = text.find_last_of("0123456789");
  return last_digit == std::string_view::npos ? std::string_view() : text.substr(last_digit + 1);
}

bool is_overload(std::string_view text) { return text.find("OL") != std::string_view::npos; }

}  // namespace halden
