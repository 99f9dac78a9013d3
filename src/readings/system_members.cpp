// The powers of the whole system.
#include <cmath>
#include <optional>
#include <string>

#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

// Nothing when a phase is over range, also one that the wiring does not use.
DerivedRaw sum_of_phases(Wiring wiring_system, DerivedRaw phase_1, DerivedRaw phase_2, DerivedRaw phase_3) {
  if (!phase_1 || !phase_2 || !phase_3) return std::nullopt;
  if (wiring_system == Wiring::w1p2w) return phase_1;
  if (wiring_system == Wiring::w1p3w) return *phase_1 + *phase_2;
  return *phase_1 + *phase_2 + *phase_3;
}

std::string text_of(const Scaling& scaling, DerivedRaw raw, const UnitTable& units) {
  return raw ? real_power_text_of(scaling, *raw, units) : std::string(overload_text);
}

}  // namespace

void Readings::system_active_power(DerivedRaw w1, DerivedRaw w2, DerivedRaw w3) {
  system_w_raw = sum_of_phases(scaling_.wiring_system, w1, w2, w3);
  system_w_text = text_of(scaling_, system_w_raw, w_units);
}

void Readings::system_reactive_power(DerivedRaw var1, DerivedRaw var2, DerivedRaw var3) {
  system_var_raw = sum_of_phases(scaling_.wiring_system, var1, var2, var3);
  system_var_text = text_of(scaling_, system_var_raw, var_units);
}

void Readings::system_apparent_power() {
  system_va_raw.reset();
  if (system_w_raw && system_var_raw)
    system_va_raw = std::sqrt(*system_w_raw * *system_w_raw + *system_var_raw * *system_var_raw);
  system_va_text = text_of(scaling_, system_va_raw, va_units);
}

}  // namespace halden
