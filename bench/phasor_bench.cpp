// One redraw of the phasor window: from the readings to a painted window of 1000 x 640 pixels.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>

#include "app/companion.h"
#include "app/program.h"
#include "live/ui/phasor_form.h"
#include "platform/program_end.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {
namespace {

void redraw_phasors(benchmark::State& state) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int no_arguments = 0;
  const QApplication application(no_arguments, nullptr);
  VirtualWorld world;
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  StartOptions options;
  options.first_port = first_port_number;
  Companion companion(world.platform(port), options);
  dispatch([&companion] { companion.start_up(); });
  companion.click("phasor_button");
  world.run_for(2);
  PhasorForm form(companion.screen().phasor_form, {[](std::string_view) {}, [] {}, [] {}}, Look::light);
  form.resize(1000, 640);
  form.show_changes();
  QPixmap picture(form.size());
  for (auto _ : state) {
    companion.program().phasors.update_phasors();
    form.show_changes();
    form.render(&picture);
  }
  if (companion.screen().phasor_form["angle_v1v2"].text.empty()) state.SkipWithError("nothing was drawn");
}
BENCHMARK(redraw_phasors)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
