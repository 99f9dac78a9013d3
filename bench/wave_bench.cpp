// One harmonics or waveform frame, from the received text to values and samples to scale.

#include <benchmark/benchmark.h>

#include "chart/waves/waveform_chart.h"
#include "live/spectrum/spectrum_frame.h"
#include "live/waveform/waveform_frame.h"
#include "simulator/replies.h"

namespace halden {
namespace {

simulator::MeterSettings harmonics_mode() {
  simulator::MeterSettings settings;
  settings.mode = simulator::MeterMode::harmonics;
  return settings;
}

void harmonics_frame_to_values(benchmark::State& state) {
  const std::string frame = simulator::harmonics_frame({}, harmonics_mode(), 0);
  for (auto _ : state) benchmark::DoNotOptimize(harmonic_values(read_spectrum_frame(frame).components));
}
BENCHMARK(harmonics_frame_to_values);

void waveform_frame_to_samples(benchmark::State& state) {
  const std::string frame = simulator::waveform_frame({}, harmonics_mode(), 0);
  for (auto _ : state) {
    const WaveformFrame read = read_waveform_frame(frame);
    benchmark::DoNotOptimize(scaled_samples(read.samples, "325.4V", "-325.4V"));
  }
}
BENCHMARK(waveform_frame_to_samples);

}  // namespace
}  // namespace halden
