// The whole program beside a simulated meter, in virtual time.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/companion.h"
#include "app/program.h"
#include "platform/program_end.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

struct Journey {
  explicit Journey(double time_of_day_s = 12 * 3600.0, MeterSettings settings = {})
      : world({2026, 11, 22}, time_of_day_s), meter(settings) {}

  // Starts the program with what the working folder holds at that moment.
  void start(int first_port = 0) {
    companion = std::make_unique<Companion>(world.platform(port),
                                            StartOptions{"work", "programs", "temp", first_port});
    dispatch([this] { companion->start_up(); });
  }

  void start_on_port(int number) {
    world.files.contents["work/commport.dat"] = std::to_string(number) + "\r\n";
    start();
  }

  void click_after(double seconds, const std::string& control) {
    world.user_does(seconds, [this, control] { companion->click(control); });
  }

  const Window& window() const { return companion->screen().meter_rec; }
  const std::string& text(const std::string& control) const { return window()[control].text; }
  Program& program() { return companion->program(); }

  // The bytes the meter received from this moment of virtual time on.
  std::string received(double from_s = 0) const {
    std::string bytes;
    for (const ReceivedByte& byte : meter.log())
      if (byte.time_s >= from_s) bytes += byte.byte;
    return bytes;
  }

  // Holds phase 1, 2 or 3 of the meter's load at these raw numbers.
  void fix_phase(int phase, RawPhase raw) { meter.load().fix_raw(phase, raw); }

  VirtualWorld world;
  Meter meter;
  SimulatedPort port{world.clock, meter};
  std::unique_ptr<Companion> companion;
};

}  // namespace halden
