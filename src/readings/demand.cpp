// Maximum and average demand: averages of the system powers over whole demand periods.
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "readings/numbers.h"
#include "readings/raw_values.h"
#include "readings/readings.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr double seconds_per_minute = 60.0;

// Shows the average; on an overflow the text stays, and false says so.
bool show_demand(const Scaling& scaling, double average, const UnitTable& units, std::string& text) {
  auto new_text = power_text_of(scaling, average, Division::real, units);
  if (!new_text) return false;
  text = std::move(*new_text);
  return true;
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
  if (any_over_range({system_w_raw})) {
    demand_w_text = overload_text;
    return;
  }
  demand_w_sum += system_w_raw;
  if (!demand_period_complete(t)) return;
  const double average = demand_w_sum / demand_samples;
  if (average >= max_demand_w && show_demand(scaling_, average, w_units, demand_w_text))
    max_demand_w = average;
}

void Readings::advance_maximum_demand_va(double t) {
  if (any_over_range({system_va_raw})) {
    demand_va_text = overload_text;
    return;
  }
  demand_va_sum += system_va_raw;
  if (!demand_period_complete(t)) return;
  const double average = demand_va_sum / demand_samples;
  if (average >= max_demand_va && show_demand(scaling_, average, va_units, demand_va_text))
    max_demand_va = average;
}

void Readings::advance_average_demand_w(double t) {
  if (any_over_range({system_w_raw})) {
    average_w_text = overload_text;
    return;
  }
  average_w_sum += system_w_raw;
  if (!demand_period_complete(t)) return;
  show_demand(scaling_, average_w_sum / demand_samples, w_units, average_w_text);
}

void Readings::advance_average_demand_va(double t) {
  if (any_over_range({system_va_raw})) {
    average_va_text = overload_text;
    return;
  }
  const auto sum = to_int32(average_va_sum + system_va_raw);
  if (!sum) return;
  average_va_sum = *sum;
  if (!demand_period_complete(t)) return;
  show_demand(scaling_, static_cast<double>(average_va_sum) / demand_samples, va_units, average_va_text);
}

void Readings::reset_demand_period(double t) {
  if (!demand_period_complete(t)) return;
  demand_samples = 0;
  demand_w_sum = demand_va_sum = average_w_sum = 0.0;
  average_va_sum = 0;
}

}  // namespace halden
