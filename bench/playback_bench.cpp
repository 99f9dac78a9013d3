// Stepping through the records of a long waveform file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "filetools/playback/playback_chart.h"
#include "platform/qt/core/qt_files.h"

namespace halden {
namespace {

constexpr std::size_t records = 10000;

// 62 MB; it is deleted at the end.
struct LongFile {
  LongFile() : path((std::filesystem::temp_directory_path() / "halden-bench.dat").string()) {
    std::string record = "03-15-2024   12:30:42 B ";
    for (int sample = 0; sample < 1024; ++sample) record += std::to_string(10000 + sample * 17) + " ";
    record += "O=    0R= 2301P= 3254N= 3249H=    2T=   32V= 2300 E\r\n";
    std::string bytes =
        "WAVE Hz=60 MD=15 SEC=4 CT=1 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%\r\nDATE, TIME\r\n";
    for (std::size_t number = 0; number < records; ++number) bytes += record;
    files.replace(path, bytes);
  }
  ~LongFile() { files.remove(path); }

  QtFiles files;
  std::string path;
};

LongFile& long_file() {
  static LongFile file;
  return file;
}

void open_waveform_file_of_10000_records(benchmark::State& state) {
  LongFile& file = long_file();
  for (auto _ : state) benchmark::DoNotOptimize(open_playback(file.files, file.path, WaveFileKind::waveform));
}
BENCHMARK(open_waveform_file_of_10000_records)->Unit(benchmark::kMillisecond);

// What a step does before the chart is drawn.
void step_at_waveform_record_10000(benchmark::State& state) {
  LongFile& file = long_file();
  const auto opened = open_playback(file.files, file.path, WaveFileKind::waveform).file;
  std::size_t number = records;
  for (auto _ : state) {
    number = number == records ? records - 1 : records;
    benchmark::DoNotOptimize(playback_chart(play_record(file.files, *opened, number, {}), Language::english));
  }
}
BENCHMARK(step_at_waveform_record_10000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
