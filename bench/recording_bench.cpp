// One record line: built from the texts of the screen and appended to a file on the local disk.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "app/program.h"
#include "platform/program_end.h"
#include "platform/qt/core/qt_files.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {
namespace {

void record_line(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / "halden_bench";
  std::filesystem::create_directories(folder);
  VirtualWorld world;
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  QtFiles files;
  const Platform outside = world.platform(port);
  StartOptions options;
  options.first_port = first_port_number;
  Program program({outside.clock, outside.timer1, outside.timer2, outside.port, outside.dialogs,
                   outside.printer, outside.pictures, outside.shell, files},
                  options);
  dispatch([&program] { program.application.start_up(); });
  world.run_for(5);
  Recording& recording = program.live.recording;
  recording.begin_data_file(folder / "record.csv");
  recording.start_manual();
  for (auto _ : state) {
    recording.record_once();
    recording.frame_shown();
  }
  if (recording.file().lines_written() == 0) state.SkipWithError("nothing was written");
  std::filesystem::remove_all(folder);
}
BENCHMARK(record_line)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace halden
