// The whole program beside a simulated meter, in virtual time.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/program.h"
#include "platform/program_end.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

// What the user is told when the meter does not answer a status query.
inline const std::string status_failed =
    "Meter status could not be obtained, please check connections, com port, etc, and try again.";

// The lines of a data file, without their line ends.
inline std::vector<std::string> lines_of(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = bytes.find("\r\n", begin);
    EXPECT_NE(end, std::string::npos) << "a line without its end";
    lines.push_back(bytes.substr(begin, end - begin));
    begin = end == std::string::npos ? bytes.size() : end + 2;
  }
  return lines;
}

struct Journey {
  explicit Journey(double time_of_day_s = 12 * 3600.0, simulator::MeterSettings settings = {})
      : world({2026, 11, 22}, time_of_day_s), meter(settings) {}

  // Starts the program with what the working folder holds at that moment.
  void start(int first_port = 0) {
    started =
        std::make_unique<Program>(world.platform(port), StartOptions{"work", "programs", "temp", first_port});
    dispatch([this] { program().application.start_up(); });
  }

  void start_on_port(int number) {
    world.files.contents["work/commport.dat"] = std::to_string(number) + "\r\n";
    start();
  }

  // Clicks and runs until what the click began is over.
  void click(const std::string& control, const std::string& on = "MeterRec") {
    window(on).click(control);
    program().application.refresh_status_line();
  }

  void click_after(double seconds, const std::string& control) {
    world.user_does(seconds, [this, control] { click(control); });
  }

  Window& window(const std::string& name = "MeterRec") const { return started->shared.windows[name]; }
  const std::string& text(const std::string& control) const { return window()[control].text; }
  // The texts of the value panels with these names, "V1 I1", each followed by a bar.
  std::string values(const std::string& names) const {
    std::istringstream panels(names);
    std::string texts;
    for (std::string panel; panels >> panel;) texts += text(panel + "_value") + "|";
    return texts;
  }

  double now_s() const { return world.clock.monotonic_s(); }
  Program& program() { return *started; }

  // The bytes the meter received from this moment of virtual time on.
  std::string received(double from_s = 0) const {
    std::string bytes;
    for (const simulator::ReceivedByte& byte : meter.log())
      if (byte.time_s >= from_s) bytes += byte.byte;
    return bytes;
  }

  // Holds phase 1, 2 or 3 of the meter's load at these raw numbers.
  void fix_phase(int phase, simulator::RawPhase raw) { meter.load().fix_raw(phase, raw); }

  // One with every displayed digit worked out on paper where its texts are expected.
  void fix_worked_load() {
    fix_phase(1, {2301, 12340, 2781, 0, 116});
    fix_phase(2, {2298, 11870, 2655, 1200, 1332});
    fix_phase(3, {2306, 13020, 2902, -1200, -1052});
  }

  VirtualWorld world;
  simulator::Meter meter;
  simulator::SimulatedPort port{world.clock, meter};
  std::unique_ptr<Program> started;
};

}  // namespace halden
