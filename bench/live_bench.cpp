// From the bytes of a complete 3P4W frame to all texts of the main window, once-per-sample work included.

#include <benchmark/benchmark.h>

#include <string>

#include "app/program.h"
#include "platform/program_end.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {
namespace {

const std::string frame =
    "V1=  2301  I1= 12340  W1=  2781  P1=     0  Q1=   116"
    "V2=  2298  I2= 11870  W2=  2655  P2=  1200  Q2=  1332"
    "V3=  2306  I3= 13020  W3=  2902  P3= -1200  Q3= -1052";

void prepare(Program& program) {
  program.link.state.port_ready = 1;
  program.link.status.ct_ratio = program.link.status.pt_ratio = 1;
  program.link.status.current_range = 1;
  program.link.status.md_period = 15;
}

enum class Sampling { between_instants, at_an_instant };

void handle_frames(benchmark::State& state, Sampling sampling) {
  VirtualWorld world;
  ScriptedPort port(world);
  Program program(world.platform(port), {});
  program.application.start_up();
  prepare(program);
  bool even = false;
  for (auto _ : state) {
    program.link.state.poll_buffer = frame;
    even = !even;
    if (sampling == Sampling::at_an_instant)
      program.shared.meter_rec.set_text("Label1_3", even ? "12:30:44" : "12:30:46");
    program.live.monitor.take_frame();
    benchmark::DoNotOptimize(program.shared.meter_rec.revision());
  }
  if (program.shared.meter_rec["V31_value"].text != "398.9V") state.SkipWithError("wrong reading");
}
void frame_to_texts(benchmark::State& state) { handle_frames(state, Sampling::between_instants); }
BENCHMARK(frame_to_texts);

void frame_to_texts_with_sampling_instant(benchmark::State& state) {
  handle_frames(state, Sampling::at_an_instant);
}
BENCHMARK(frame_to_texts_with_sampling_instant);

// An hour beside the simulated meter, about 14,000 frames; the figure is virtual hours per real second.
void hour_of_polling(benchmark::State& state) {
  for (auto _ : state) {
    VirtualWorld world;
    simulator::Meter meter;
    simulator::SimulatedPort port(world.clock, meter);
    world.files.contents["./commport.dat"] = "1\r\n";
    Program program(world.platform(port), {});
    dispatch([&program] { program.application.start_up(); });
    world.run_for(3600);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(hour_of_polling)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
