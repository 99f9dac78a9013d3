#include "logger/power_conversion.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "formats/file_headers.h"
#include "logger/recorded_settings.h"
#include "readings/patterns.h"
#include "readings/wiring.h"

namespace halden {

namespace {

// The field of phase 1 for each phase quantity; those of phases 2 and 3 follow it.
constexpr std::array phase_fields = {
    std::pair{PhaseQuantity::V, PowerQuantity::V1},        std::pair{PhaseQuantity::I, PowerQuantity::I1},
    std::pair{PhaseQuantity::W, PowerQuantity::P1},        std::pair{PhaseQuantity::VA, PowerQuantity::S1},
    std::pair{PhaseQuantity::VAR, PowerQuantity::Q1},      std::pair{PhaseQuantity::PF, PowerQuantity::PF1},
    std::pair{PhaseQuantity::Phase, PowerQuantity::Phase1}};

PowerQuantity following(PowerQuantity first, std::size_t offset) {
  return static_cast<PowerQuantity>(static_cast<std::size_t>(first) + offset);
}

RecordedSettings usable(RecordedSettings recorded) {
  Scaling& scaling = recorded.scaling;
  scaling.ct_ratio = recorded_ratio(scaling.ct_ratio);
  scaling.pt_ratio = recorded_ratio(scaling.pt_ratio);
  scaling.product_limit = ProductLimit::none;
  recorded.interval_s = std::max(recorded.interval_s, std::int16_t{0});
  return recorded;
}

PhaseGroup values_of(const StoredGroup& group) {
  const auto [v, i, w, v_angle, i_angle] = group;
  return {v, i, w, v_angle, i_angle};
}

}  // namespace

PowerConversion::PowerConversion(const RecordedSettings& recorded)
    : recorded_(usable(recorded)),
      chain_(recorded_.scaling, ActivePower::at_most_apparent),
      clock_(recorded_.start_date, recorded_.start_time) {}

std::string PowerConversion::settings_line() const {
  const Scaling& scaling = recorded_.scaling;
  const std::string md = format_pattern(scaling.md_period, "####0");
  const std::string interval = format_pattern(recorded_.interval_s, "####0");
  const std::string ct = format_pattern(scaling.ct_ratio, "###0");
  const std::string pt = format_pattern(scaling.pt_ratio, "###0");
  return stored_power_settings_line(scaling.wiring_system,
                                    {recorded_frequency_text(recorded_.frequency_code), md, interval, ct, pt},
                                    recorded_.channel);
}

std::string PowerConversion::column_line() const {
  return power_column_line(recorded_.scaling.wiring_system);
}

std::optional<RecordLine> PowerConversion::take(const StoredGroup& group) {
  const Wiring wiring_system = recorded_.scaling.wiring_system;
  if (!is_known(wiring_system)) return {};
  keep_phase(chain_.take_phase(phases_taken_, values_of(group)));
  ++phases_taken_;
  if (phases_taken_ < phases_in_use(wiring_system)) return {};
  keep_system();
  return end_record();
}

std::optional<RecordLine> PowerConversion::finish() {
  if (phases_taken_ == 0) return {};
  return end_record();
}

void PowerConversion::keep_phase(const PhaseTexts& texts) {
  for (const auto& [quantity, field] : phase_fields)
    if (texts[quantity]) text(following(field, phases_taken_)) = *texts[quantity];
}

void PowerConversion::keep_system() {
  const SystemTexts system = chain_.take_system();
  text(PowerQuantity::W_SYS) = system.w;
  text(PowerQuantity::VAR_SYS) = system.var;
  text(PowerQuantity::VA_SYS) = system.va;
  text(PowerQuantity::PF_SYS) = system.pf;
  if (system.lines)
    for (std::size_t line = 0; line < phase_count; ++line)
      text(following(PowerQuantity::V12, line)) = (*system.lines)[line];
  Readings& readings = chain_.readings;
  readings.advance_energy_and_demand(recorded_.interval_s);
  text(PowerQuantity::WH_SYS) = readings.energy_wh_text;
  text(PowerQuantity::VARH_SYS) = readings.energy_varh_text;
  text(PowerQuantity::VAH_SYS) = readings.energy_vah_text;
  text(PowerQuantity::PFH_SYS) = readings.energy_pf_text;
  text(PowerQuantity::W_MD) = readings.demand_w_text;
  text(PowerQuantity::VA_MD) = readings.demand_va_text;
  text(PowerQuantity::W_AD) = readings.average_w_text;
  text(PowerQuantity::VA_AD) = readings.average_va_text;
}

RecordLine PowerConversion::end_record() {
  PowerTexts shown;
  std::copy(texts_.begin(), texts_.end(), shown.begin());
  RecordLine line =
      power_record(recorded_.scaling.wiring_system, clock_.date_text(), clock_.time_text(), shown);
  for (std::string& text : texts_) text.clear();
  phases_taken_ = 0;
  clock_.advance(recorded_.interval_s);
  ++records_;
  return line;
}

}  // namespace halden
