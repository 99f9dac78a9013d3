// What formatting costs per frame. A complete 3P4W frame has 20 microseconds for all of it.
#include <benchmark/benchmark.h>

#include "readings/patterns.h"
#include "readings/readings.h"

namespace halden {
namespace {

Scaling bench_scaling() {
  Scaling scaling;
  scaling.ct_ratio = 200;
  scaling.pt_ratio = 11;
  scaling.current_scale = 1.2f;
  scaling.current_range = 1;
  scaling.md_period = 15;
  return scaling;
}

struct Phase {
  double v, i, w, angle_v, angle_i;
};

constexpr Phase phases[] = {
    {2301, 4987, 1032, 0, -254}, {2287, 5123, 1077, -1203, -1456}, {2312, 4890, 998, 1196, 934}};

void format_phase(Readings& readings, const Phase& phase) {
  readings.voltage(phase.v);
  readings.current(phase.i);
  readings.active_power(phase.w);
  readings.apparent_power(phase.v, phase.i, phase.w);
  readings.power_factor(phase.w, readings.va_raw);
  readings.phase_angle(phase.v, phase.i, phase.angle_v, phase.angle_i);
  readings.reactive_power(readings.va_raw, phase.w, phase.angle_v, phase.angle_i);
}

void format_system(Readings& readings) {
  readings.system_active_power(phases[0].w, phases[1].w, phases[2].w);
  readings.system_reactive_power(488, 462, 530);
  readings.system_apparent_power();
  readings.system_power_factor();
  for (int a = 0; a < 3; ++a) {
    const Phase& from = phases[a];
    const Phase& to = phases[(a + 1) % 3];
    readings.line_voltage(from.v, to.v, from.angle_v, to.angle_v);
  }
}

void accumulate(Readings& readings, double t) {
  readings.advance_energy_wh(t);
  readings.advance_energy_varh(t);
  readings.advance_energy_vah(t);
  readings.energy_power_factor();
  readings.count_demand_sample();
  readings.advance_maximum_demand_w(t);
  readings.advance_maximum_demand_va(t);
  readings.advance_average_demand_w(t);
  readings.advance_average_demand_va(t);
  readings.logger_reset_md_ad_counter(t);
}

void readings_3p4w_frame(benchmark::State& state) {
  const Scaling scaling = bench_scaling();
  Readings readings(scaling);
  for (auto _ : state) {
    for (const Phase& phase : phases) format_phase(readings, phase);
    format_system(readings);
    accumulate(readings, 2.0);
    benchmark::DoNotOptimize(readings);
  }
}
BENCHMARK(readings_3p4w_frame);

void pattern_of_a_fraction(benchmark::State& state) {
  double value = 0.0;
  for (auto _ : state) {
    value += 0.013;
    benchmark::DoNotOptimize(format_pattern(value, "##0.0"));
  }
}
BENCHMARK(pattern_of_a_fraction);

}  // namespace
}  // namespace halden
