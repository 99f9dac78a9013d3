// A stored recording of 100,000 3P4W records turned from its words into the lines of a data file, both in
// real files: at most 0.8 s.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "logger/file_conversion.h"
#include "logger/word_file.h"
#include "platform/qt/core/qt_files.h"

namespace halden {
namespace {

constexpr int record_count = 100000;

std::string bytes_of(int value) { return {static_cast<char>(value >> 8), static_cast<char>(value)}; }

// Loads that change from record to record, so that no value repeats for long.
std::string stored_words() {
  std::string lines;
  for (int record = 0; record < record_count; ++record)
    for (int phase = 0; phase < 3; ++phase) {
      const int drift = record % 997;
      lines += word_lines(bytes_of(2280 + drift % 40) + bytes_of(4800 + drift) + bytes_of(1000 + drift / 8) +
                          bytes_of(phase * -1200) + bytes_of(phase * -1200 - 250 - drift % 30));
    }
  return lines;
}

void convert_power_records(benchmark::State& state) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::string words = (folder / "halden-bench.pwr").string();
  const std::string output = (folder / "halden-bench.csv").string();
  const RecordedSettings recorded = {.scaling = {200, 11, 1.2F, 1, Wiring::w3p4w, 15, ProductLimit::none},
                                     .interval_s = 2,
                                     .start_date = "2024-03-15",
                                     .start_time = "12:30:44"};
  QtFiles files;
  if (files.replace(words, stored_words()) != FileFailure::none) state.SkipWithError("no words");
  for (auto _ : state) {
    state.PauseTiming();
    files.remove(output);
    state.ResumeTiming();
    const FileConversion done = convert_power_file(files, words, recorded, output, [](std::size_t) {});
    if (done.records != record_count) state.SkipWithError("a line is missing");
  }
  for (const std::string& path : {words, output}) files.remove(path);
}
BENCHMARK(convert_power_records)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
