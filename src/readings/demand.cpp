// Maximum and average demand: averages of the system powers over whole demand periods.
#include <limits>

#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr double seconds_per_minute = 60.0;

// Adds a sample to the sum of a demand. False when it is over range, which the text then shows.
bool add_sample(DerivedRaw raw, double& sum, std::string& text) {
  if (!raw) {
    text = overload_text;
    return false;
  }
  sum += *raw;
  return true;
}

// A period has completed: the higher one of its average and the kept maximum is kept and shown.
void complete_maximum(const Scaling& scaling, double average, const UnitTable& units, double& maximum,
                      std::string& maximum_text, std::string& text) {
  if (average >= maximum) {
    maximum = average;
    maximum_text = real_power_text_of(scaling, average, units);
  }
  text = maximum_text;
}

}  // namespace

void Readings::count_demand_sample() {
  // While no period ends (sampling time 0) the counter is never reset; it must not overflow.
  if (demand_samples < std::numeric_limits<std::int32_t>::max()) ++demand_samples;
}

bool Readings::demand_period_complete(double t) const {
  return t != 0.0 && demand_samples > 0 && demand_samples >= scaling_.md_period * seconds_per_minute / t;
}

void Readings::advance_maximum_demand_w(double t) {
  if (add_sample(system_w_raw, demand_w_sum, demand_w_text) && demand_period_complete(t))
    complete_maximum(scaling_, demand_w_sum / demand_samples, w_units, max_demand_w, max_demand_w_text,
                     demand_w_text);
}

void Readings::advance_maximum_demand_va(double t) {
  if (add_sample(system_va_raw, demand_va_sum, demand_va_text) && demand_period_complete(t))
    complete_maximum(scaling_, demand_va_sum / demand_samples, va_units, max_demand_va, max_demand_va_text,
                     demand_va_text);
}

void Readings::advance_average_demand_w(double t) {
  if (add_sample(system_w_raw, average_w_sum, average_w_text) && demand_period_complete(t))
    average_w_text = real_power_text_of(scaling_, average_w_sum / demand_samples, w_units);
}

void Readings::advance_average_demand_va(double t) {
  if (add_sample(system_va_raw, average_va_sum, average_va_text) && demand_period_complete(t))
    average_va_text = real_power_text_of(scaling_, average_va_sum / demand_samples, va_units);
}

void Readings::advance_energy_and_demand(double t) {
  advance_energy_wh(t);
  advance_energy_varh(t);
  advance_energy_vah(t);
  energy_power_factor();
  count_demand_sample();
  advance_maximum_demand_w(t);
  advance_maximum_demand_va(t);
  advance_average_demand_w(t);
  advance_average_demand_va(t);
  logger_reset_md_ad_counter(t);
}

void Readings::logger_reset_md_ad_counter(double t) {
  if (!demand_period_complete(t)) return;
  demand_samples = 0;
  demand_w_sum = demand_va_sum = average_w_sum = average_va_sum = 0.0;
}

}  // namespace halden
