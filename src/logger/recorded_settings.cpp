#include "logger/recorded_settings.h"

#include <algorithm>
#include <array>
#include <utility>

#include "readings/patterns.h"

namespace halden {

namespace {

// The clamp type stands in the two top bits.
float recorded_clamp_factor(std::int16_t clamp_flags) {
  constexpr std::array<float, 4> factors = {1.0F, 1.0F, 3.0F, 1.2F};
  return factors[static_cast<std::uint16_t>(clamp_flags) >> 14U];
}

std::int16_t recorded_ratio(std::int16_t ratio) { return ratio == 0 ? std::int16_t{1} : ratio; }

std::string frequency_text(std::int16_t frequency_code) {
  if (frequency_code == 1) return "50";
  return frequency_code == 2 ? "60" : "Auto";
}

}  // namespace

RecordedSettings recorded_settings_of(const MeterStatus& status, std::string start_date,
                                      std::string start_time) {
  return {.scaling = {.ct_ratio = recorded_ratio(status.logger_ct_ratio),
                      .pt_ratio = recorded_ratio(status.logger_pt_ratio),
                      .current_scale = recorded_clamp_factor(status.logger_clamp_flags),
                      .current_range = status.logger_current_range,
                      .wiring_system = Wiring{status.logger_system},
                      .md_period = status.md_period,
                      .product_limit = ProductLimit::none},
          .interval_s = std::max(status.logger_sample_seconds, std::int16_t{0}),
          .frequency_code = status.logger_frequency_code,
          .channel = status.logger_channel,
          .start_date = std::move(start_date),
          .start_time = std::move(start_time)};
}

RecordedTexts recorded_texts(const RecordedSettings& recorded) {
  return {.hz = frequency_text(recorded.frequency_code),
          .md = format_pattern(recorded.scaling.md_period, "####0"),
          .sec = format_pattern(recorded.interval_s, "####0"),
          .ct = format_pattern(recorded.scaling.ct_ratio, "###0"),
          .vt = format_pattern(recorded.scaling.pt_ratio, "###0")};
}

}  // namespace halden
