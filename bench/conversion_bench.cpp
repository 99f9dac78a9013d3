// A stored recording of 100,000 3P4W records turned into data lines: at most 0.8 s.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "logger/power_conversion.h"

namespace halden {
namespace {

constexpr int record_count = 100000;

// Loads that change from record to record, so that no value repeats for long.
std::array<std::int16_t, 5> group_of(int record, int phase) {
  const auto word = [](int value) { return static_cast<std::int16_t>(value); };
  const int drift = record % 997;
  return {word(2280 + drift % 40), word(4800 + drift), word(1000 + drift / 8), word(phase * -1200),
          word(phase * -1200 - 250 - drift % 30)};
}

void convert_power_records(benchmark::State& state) {
  RecordedSettings recorded;
  recorded.scaling = {200, 11, 1.2F, 1, Wiring::w3p4w, 15, ProductLimit::none};
  recorded.interval_s = 2;
  recorded.start_date = "2024-03-15";
  recorded.start_time = "12:30:44";
  for (auto _ : state) {
    PowerConversion conversion(recorded);
    std::size_t bytes = 0;
    for (int record = 0; record < record_count; ++record)
      for (int phase = 0; phase < 3; ++phase)
        for (const std::int16_t word : group_of(record, phase))
          if (const auto line = conversion.take(word)) bytes += line->text.size();
    if (bytes != std::size_t{418} * record_count) state.SkipWithError("a line is missing");
  }
}
BENCHMARK(convert_power_records)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
