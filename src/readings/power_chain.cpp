#include "readings/power_chain.h"

#include <cmath>

#include "readings/numbers.h"

namespace halden {

PhaseTexts PowerChain::take_phase(std::size_t phase, const PhaseGroup& group) {
  PhaseTexts texts;
  Readings& readings = phases_[phase];
  if (group.v) {
    raw.v_raw[phase] = *group.v;
    readings.voltage(*group.v);
    texts[PhaseQuantity::V] = readings.voltage_text;
  }
  take_powers(phase, group, texts);
  if (group.v_angle && group.i_angle) take_angles(phase, group, texts);
  return texts;
}

void PowerChain::take_powers(std::size_t phase, const PhaseGroup& group, PhaseTexts& texts) {
  Readings& readings = phases_[phase];
  if (group.i) {
    raw.i_raw[phase] = *group.i;
    readings.current(*group.i);
    texts[PhaseQuantity::I] = readings.current_text;
  }
  if (group.w) {
    raw.w_raw[phase] = from_meter(*group.w);
    readings.active_power(*group.w);
    texts[PhaseQuantity::W] = readings.power_text;
  }
  if (!group.v || !group.i || !group.w) return;
  readings.apparent_power(raw.v_raw[phase], *group.i, *group.w);
  raw.va_raw[phase] = readings.va_raw;
  texts[PhaseQuantity::VA] = readings.va_text;
  if (active_power_ == ActivePower::at_most_apparent) limit_active_power(phase);
  readings.power_factor(raw.w_raw[phase], raw.va_raw[phase]);
  texts[PhaseQuantity::PF] = readings.pf_text;
}

// The apparent power has the sign of the active one.
void PowerChain::limit_active_power(std::size_t phase) {
  DerivedRaw& w = raw.w_raw[phase];
  const DerivedRaw& va = raw.va_raw[phase];
  if (w && va && std::fabs(*w) > std::fabs(*va)) w = va;
}

// Without a voltage or a current its angle has no meaning.
void PowerChain::take_angles(std::size_t phase, const PhaseGroup& group, PhaseTexts& texts) {
  Readings& readings = phases_[phase];
  raw.v_angle[phase] = raw.v_raw[phase] == 0 ? 0 : *group.v_angle;
  raw.i_angle[phase] = raw.i_raw[phase] == 0 ? 0 : to_int32(*group.i_angle).value_or(raw.i_angle[phase]);
  readings.phase_angle(raw.v_raw[phase], raw.i_raw[phase], raw.v_angle[phase], raw.i_angle[phase]);
  texts[PhaseQuantity::Phase] = readings.angle_text;
  if (!group.v || !group.i || !group.w) return;
  readings.reactive_power(raw.va_raw[phase], raw.w_raw[phase], raw.v_angle[phase], raw.i_angle[phase]);
  raw.var_raw[phase] = readings.var_raw;
  texts[PhaseQuantity::VAR] = readings.var_text;
}

SystemTexts PowerChain::take_system() {
  PerPhase<DerivedRaw> w{0, 0, 0};  // 0 for phases not in use, whatever their last values
  PerPhase<DerivedRaw> var{0, 0, 0};
  for (std::size_t p = 0; p < phases_in_use(scaling_.wiring_system); ++p) {
    w[p] = raw.w_raw[p];
    var[p] = raw.var_raw[p];
  }
  readings.system_active_power(w[0], w[1], w[2]);
  readings.system_reactive_power(var[0], var[1], var[2]);
  readings.system_apparent_power();
  readings.system_power_factor();
  SystemTexts texts = {readings.system_w_text, readings.system_var_text, readings.system_va_text,
                       readings.system_pf_text, std::nullopt};
  if (!is_three_phase(scaling_.wiring_system)) return texts;
  texts.lines.emplace();
  for (std::size_t a = 0; a < phase_count; ++a) {
    const std::size_t b = (a + 1) % phase_count;
    lines_[a].line_voltage(raw.v_raw[a], raw.v_raw[b], raw.v_angle[a], raw.v_angle[b]);
    raw.line_raw[a] = lines_[a].line_voltage_raw;
    (*texts.lines)[a] = lines_[a].line_voltage_text;
  }
  return texts;
}

}  // namespace halden
