// The powers of the whole system.
#include <cmath>
#include <string>
#include <utility>

#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

double sum_of_phases(Wiring wiring_system, double phase_1, double phase_2, double phase_3) {
  if (wiring_system == Wiring::w1p2w) return phase_1;
  if (wiring_system == Wiring::w1p3w) return phase_1 + phase_2;
  return phase_1 + phase_2 + phase_3;
}

// Sets the raw value and the text of a system power; both stay as they were when the text does not fit.
void show_system_power(const Scaling& scaling, bool over, double new_raw, const UnitTable& units, double& raw,
                       std::string& text) {
  if (over) {
    raw = over_range;
    text = overload_text;
    return;
  }
  auto new_text = power_text_of(scaling, new_raw, Division::real, units);
  if (!new_text) return;
  raw = new_raw;
  text = std::move(*new_text);
}

}  // namespace

void Readings::system_active_power(double w1, double w2, double w3) {
  show_system_power(scaling_, any_over_range({w1, w2, w3}), sum_of_phases(scaling_.wiring_system, w1, w2, w3),
                    w_units, system_w_raw, system_w_text);
}

void Readings::system_reactive_power(double var1, double var2, double var3) {
  show_system_power(scaling_, any_over_range({var1, var2, var3}),
                    sum_of_phases(scaling_.wiring_system, var1, var2, var3), var_units, system_var_raw,
                    system_var_text);
}

void Readings::system_apparent_power() {
  show_system_power(scaling_, any_over_range({system_w_raw, system_var_raw}),
                    std::sqrt(system_w_raw * system_w_raw + system_var_raw * system_var_raw), va_units,
                    system_va_raw, system_va_text);
}

}  // namespace halden
