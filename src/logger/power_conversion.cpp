#include "logger/power_conversion.h"

#include <array>
#include <utility>

#include "formats/file_headers.h"
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

}  // namespace

PowerConversion::PowerConversion(const RecordedSettings& recorded)
    : recorded_(recorded),
      chain_(recorded_.scaling, ActivePower::at_most_apparent),
      clock_(recorded_.start_date, recorded_.start_time) {}

std::string PowerConversion::header() const {
  return header_lines(stored_power_settings_line(recorded_.scaling.wiring_system,
                                                 recorded_texts(recorded_).views(), recorded_.channel),
                      logger_write_header());
}

std::string PowerConversion::logger_write_header() const {
  return power_column_line(recorded_.scaling.wiring_system);
}

std::optional<RecordLine> PowerConversion::take(std::int16_t word) {
  const Wiring wiring_system = recorded_.scaling.wiring_system;
  if (!is_known(wiring_system)) return {};
  group_[words_taken_++] = word;
  if (words_taken_ < group_.size()) return {};
  words_taken_ = 0;
  keep_phase(chain_.take_phase(phases_taken_, group()));
  ++phases_taken_;
  if (phases_taken_ < phases_in_use(wiring_system)) return {};
  keep_system();
  return end_record();
}

std::optional<RecordLine> PowerConversion::finish() {
  words_taken_ = 0;
  if (phases_taken_ == 0) return {};
  return end_record();
}

PhaseGroup PowerConversion::group() const {
  const auto [v, i, w, v_angle, i_angle] = group_;
  return {v, i, w, v_angle, i_angle};
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
  RecordLine line =
      power_record(recorded_.scaling.wiring_system, clock_.date_text(), clock_.time_text(), texts_);
  texts_.fill({});
  phases_taken_ = 0;
  clock_.advance_record_time(recorded_.interval_s);
  return line;
}

}  // namespace halden
