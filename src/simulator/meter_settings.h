// The settings of the simulated meter: all fields of the status reply, and the start of the meter's clock and
// its reply latency.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace halden::simulator {

enum class MeterMode { harmonics = 0, power = 1 };
enum class Wiring { w1p2w = 0, w1p3w = 1, w3p3w = 2, w3p4w = 3 };

// By the names typed on the command line and the console of halden-meter: "harmonics", "power"; "1P2W",
// "1P3W", "3P3W", "3P4W".
std::optional<MeterMode> mode_of(std::string_view name);
std::optional<Wiring> wiring_of(std::string_view name);

// Phases in use: 1 to 3.
constexpr int phases_in_use(Wiring wiring) {
  return std::array{1, 2, 3, 3}[static_cast<std::size_t>(wiring)];
}

struct MeterClock {
  int year = 2026;
  int month = 5;
  int day = 12;
  int hour = 9;
  int minute = 30;
  int second = 0;
};

// The settings under which the selected stored file was recorded.
struct LoggerSettings {
  int data_type = 1;  // 0 harmonics, 1 power data, bit 1 set: hardcopy
  int channel = 0;
  int wiring = 3;
  int frequency_code = 1;
  int current_range = 1;
  int pt_ratio = 1;
  int ct_ratio = 1;
  int sample_seconds = 2;
  int clamp_flags = 0;  // bits 14 and 15
  int file_index = 0;
  int file_count = 0;
  std::optional<MeterClock> file_start =
      std::nullopt;  // without one the status reply tells the meter's clock
};

struct MeterSettings {
  MeterMode mode = MeterMode::power;
  int channel = 0;  // input of the harmonics mode: 0 V1, 1 I1, 2 V2, 3 I2, 4 V3, 5 I3
  Wiring wiring = Wiring::w3p4w;
  int frequency_code = 1;  // 1 50 Hz, 2 60 Hz, other automatic
  int pt_ratio = 1;
  int ct_ratio = 1;
  int sample_seconds = 2;
  int md_period = 15;      // minutes
  int current_range = 1;   // 0..3; the unit of a raw current is 0.1 mA x 10^range
  int clamp_flags = 0;     // bits 9 and 10: 0x000 or 0x400 factor 1.0, 0x200 factor 3.0, 0x600 factor 1.2
  int harmonic_order = 1;  // 0..99
  LoggerSettings logger;
  MeterClock clock_start;          // what the meter's clock shows at the first call of Meter
  double reply_latency_s = 0.020;  // from a request to the start of its reply
};

}  // namespace halden::simulator
