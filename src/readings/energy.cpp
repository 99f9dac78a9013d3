// Energy as running sums of raw system powers.
#include <string>

#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr double seconds_per_hour = 3600.0;

// The sum holds raw values without sampling time and ratios, so that a changed setting changes the text at
// once.
void advance_energy(const Scaling& scaling, DerivedRaw raw, double t, const UnitTable& units, double& sum,
                    std::string& text) {
  if (!raw) {
    text = overload_text;
    return;
  }
  sum += *raw;
  text = real_power_text_of(scaling, sum * t / seconds_per_hour, units);
}

}  // namespace

void Readings::advance_energy_wh(double t) {
  advance_energy(scaling_, system_w_raw, t, wh_units, energy_wh, energy_wh_text);
}

void Readings::advance_energy_varh(double t) {
  advance_energy(scaling_, system_var_raw, t, varh_units, energy_varh, energy_varh_text);
}

void Readings::advance_energy_vah(double t) {
  advance_energy(scaling_, system_va_raw, t, vah_units, energy_vah, energy_vah_text);
}

void Readings::reset_energy_and_demand() {
  energy_wh = energy_varh = energy_vah = 0.0;
  demand_samples = 0;
  demand_w_sum = demand_va_sum = average_w_sum = average_va_sum = 0.0;
  max_demand_w = max_demand_va = 0.0;
  demand_w_text = demand_va_text = max_demand_w_text = max_demand_va_text = no_demand_text;
  average_w_text.clear();
  average_va_text.clear();
}

}  // namespace halden
