// halden-meter: a simulated Halden behind a pseudo-terminal.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/process.h"
#include "simulator/pty_meter.h"
#include "simulator/stored_files.h"

namespace simulator = halden::simulator;

namespace {

struct Options {
  std::string link;
  std::string wiring = "3P4W";
  std::string mode = "power";
  std::string memory = "example";
  std::vector<std::string> faults;
};

simulator::MeterClock local_time() {
  const std::time_t now = std::time(nullptr);
  std::tm time{};
  localtime_r(&now, &time);
  return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

void describe(CLI::App& app, Options& options) {
  app.set_version_flag("--version", "halden-meter " HALDEN_VERSION);
  app.add_option("--link", options.link, "Symbolic link to make to the device, removed at the end");
  app.add_option("--wiring", options.wiring, "1P2W, 1P3W, 3P3W or 3P4W")
      ->capture_default_str()
      ->check(CLI::IsMember({"1P2W", "1P3W", "3P3W", "3P4W"}));
  app.add_option("--mode", options.mode, "power or harmonics")
      ->capture_default_str()
      ->check(CLI::IsMember({"power", "harmonics"}));
  app.add_option("--memory", options.memory, "What is stored in the meter: example, small or empty")
      ->capture_default_str()
      ->check(CLI::IsMember({"example", "small", "empty"}));
  app.add_option("--fault", options.faults,
                 "silence, garbage, doubled, noise, restarts, stream, unplugged, cut=BYTES, drop=EVERY, "
                 "late=SECONDS, split=BYTES:SECONDS, file_cut=BYTES, file_lose=BYTE, file_extra=BYTES, "
                 "file_pause=BYTES:SECONDS, file_sends_on=SECONDS or wrong_index=FILE (repeatable)")
      ->check([](const std::string& fault) {
        simulator::Faults ignored;
        return simulator::switch_on(fault, ignored) ? std::string() : "unknown fault: " + fault;
      });
  app.footer(
      "The first line on standard output is the device. Then one-line commands are read from standard "
      "input:\n"
      "mode power|harmonics, wiring SYSTEM, channel 0..5, silence on|off, garbage on|off, fault NAME|none,\n"
      "raw PHASE V I W P Q, raw off, transient, unplug SECONDS, log, quit.");
}

int serve(const Options& options) {
  simulator::MeterSettings settings;
  settings.mode = simulator::mode_of(options.mode).value_or(settings.mode);
  settings.wiring = simulator::wiring_of(options.wiring).value_or(settings.wiring);
  settings.clock_start = local_time();
  simulator::Meter meter(settings);
  if (options.memory == "example") meter.memory() = simulator::example_memory();
  if (options.memory == "small") meter.memory() = simulator::small_memory();
  for (const std::string& fault : options.faults) simulator::switch_on(fault, meter.faults());
  simulator::PtyMeter device(meter, options.link);
  const std::string refusal = device.run();
  if (refusal.empty()) return 0;
  std::fprintf(stderr, "halden-meter: %s\n", refusal.c_str());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  halden::prepare_process();
  Options options;
  CLI::App app("A simulated Halden behind a pseudo-terminal.", "halden-meter");
  describe(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    std::ostringstream text;
    return app.exit(end, text, std::cerr) == 0 ? halden::print_and_end(text.str()) : 2;
  }
  return serve(options);
}
