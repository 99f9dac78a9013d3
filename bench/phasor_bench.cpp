// One redraw of the phasor window: from the readings to a painted window of 1000 x 640 pixels.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>

#include "app/program.h"
#include "live/phasors/ui/phasor_form.h"
#include "platform/program_end.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {
namespace {

struct DirectInput : UserInput {
  void run_input(std::function<void()> handler) override { handler(); }
  void run_now(std::function<void()> handler) override { handler(); }
  bool busy() const override { return false; }
};

void redraw_phasors(benchmark::State& state) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int no_arguments = 0;
  const QApplication application(no_arguments, nullptr);
  VirtualWorld world;
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  StartOptions options;
  options.first_port = first_port_number;
  Program program(world.platform(port), options);
  dispatch([&program] { program.application.start_up(); });
  program.shared.meter_rec.click("phasor_button");
  world.run_for(2);
  Window& values = program.shared.windows["PhasorForm"];
  DirectInput input;
  FormWindow form(values, input, phasor_form_design(), Look::light);
  form.resize(1000, 640);
  form.show_changes();
  QPixmap picture(form.size());
  for (auto _ : state) {
    program.live.phasors.power_frame_shown();
    form.show_changes();
    form.render(&picture);
  }
  if (values["angle_v1v2"].text.empty()) state.SkipWithError("nothing was drawn");
}
BENCHMARK(redraw_phasors)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
