// Records a simulated meter into a real file, in virtual time and without end, for a test that kills it. Says
// after each record how many there are.
//
//   halden-test-recorder FILE

#include <cstdio>

#include "app/program.h"
#include "platform/program_end.h"
#include "platform/qt/core/qt_files.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  halden::VirtualWorld world;
  halden::simulator::Meter meter;
  halden::simulator::SimulatedPort port(world.clock, meter);
  halden::QtFiles files;
  halden::StartOptions options;
  options.first_port = 1;
  const halden::Platform outside = world.platform(port);
  halden::Program program({outside.clock, outside.timer1, outside.timer2, outside.port, outside.dialogs,
                           outside.printer, outside.pictures, outside.shell, files},
                          options);
  halden::dispatch([&] { program.application.start_up(); });
  world.dialogs.file_answers = {argv[1]};
  world.dialogs.confirm_answers = {true};
  program.shared.meter_rec.click("FileName");
  program.shared.meter_rec.click("auto_record");
  for (std::size_t told = 0;;) {
    world.run_for(0.5);
    if (const std::size_t records = program.live.recording.records(); records > told) {
      told = records;
      std::printf("%zu\n", told);
      if (std::fflush(stdout) != 0) return 1;
    }
  }
}
