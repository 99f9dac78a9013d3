#include "simulator/stored_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "simulator/screen_picture.h"
#include "simulator/spectrum.h"

namespace halden::simulator {

namespace {

enum class DataType { harmonics = 0, power = 1, hardcopy = 2 };

constexpr std::size_t record_words = 64;
constexpr std::size_t stored_orders = 51;
constexpr std::size_t first_order_word = 3;
constexpr std::size_t thd_word = 54;
constexpr std::size_t frequency_word = 55;

// The live status holds the clamp in bits 9 and 10, a stored file in bits 15 and 14.
int recorded_clamp(int clamp_flags) {
  switch (clamp_flags & 0x600) {
    case 0x200:
      return 0x8000;
    case 0x600:
      return 0xC000;
    default:
      return 0;
  }
}

StoredFile new_file(DataType type, const MeterSettings& settings, const MeterClock& start) {
  LoggerSettings recorded;
  recorded.data_type = static_cast<int>(type);
  recorded.channel = settings.channel;
  recorded.wiring = static_cast<int>(settings.wiring);
  recorded.frequency_code = settings.frequency_code;
  recorded.current_range = settings.current_range;
  recorded.pt_ratio = settings.pt_ratio;
  recorded.ct_ratio = settings.ct_ratio;
  recorded.sample_seconds = settings.sample_seconds;
  recorded.clamp_flags = recorded_clamp(settings.clamp_flags);
  recorded.file_start = start;
  return {recorded, {}};
}

double time_of_day_s(const MeterClock& clock) {
  return clock.hour * 3600.0 + clock.minute * 60.0 + clock.second;
}

double record_time_s(const MeterClock& start, const MeterSettings& settings, int record) {
  return time_of_day_s(start) + static_cast<double>(record) * settings.sample_seconds;
}

std::array<int, record_words> harmonics_record(const Spectrum& spectrum, int frequency_code) {
  const Summary summary = summarize(spectrum);
  std::array<int, record_words> words{};
  words[0] = summary.rms;
  words[1] = summary.peak_plus;
  words[2] = summary.peak_minus;
  const double fundamental = std::hypot(spectrum.cos[1], spectrum.sin[1]);
  for (std::size_t k = 0; k < stored_orders && fundamental > 0.0; ++k)
    words[first_order_word + k] =
        static_cast<int>(std::lround(10000.0 * std::hypot(spectrum.cos[k], spectrum.sin[k]) / fundamental));
  words[thd_word] = summary.thd_tenths;
  words[frequency_word] = frequency_code == 2 ? 600 : 500;
  return words;
}

std::string padded(int value, std::size_t width, char filler) {
  const std::string digits = std::to_string(value);
  return std::string(width - std::min(width, digits.size()), filler) + digits;
}

std::string event_line(int number, const TransientEvent& event) {
  constexpr int minutes_of_day = 24 * 60;
  const int shown_cycles = event.cycles > 32767 ? event.cycles - 65536 : event.cycles;
  return padded(number, 3, ' ') + padded(event.elapsed_minutes / minutes_of_day, 2, '0') + ":" +
         padded(event.elapsed_minutes % minutes_of_day / 60, 2, '0') + ":" +
         padded(event.elapsed_minutes % 60, 2, '0') + " " +
         padded(shown_cycles, shown_cycles < 0 ? 6 : 5, ' ') + " " + padded(event.condition, 2, ' ') + "\r\n";
}

// Events of every kind, one of them after midnight and one in the following month.
std::string example_report() {
  constexpr std::array<TransientEvent, 5> events = {
      {{3, 12, 1}, {15, 2, 2}, {47, 500, 3}, {62, 40000, 4}, {3 * 24 * 60, 7, 7}}};
  return transient_report({{2026, 2, 27, 23, 50, 10}, 1, 2300, 10}, events);
}

}  // namespace

std::string word_bytes(std::span<const int> words) {
  using Word = std::numeric_limits<std::int16_t>;
  std::string bytes;
  for (const int word : words) {
    const auto bits = static_cast<unsigned>(std::clamp<int>(word, Word::min(), Word::max()));
    bytes += static_cast<char>(bits >> 8 & 0xFFU);
    bytes += static_cast<char>(bits & 0xFFU);
  }
  return bytes;
}

StoredFile power_file(const Load& load, const MeterSettings& settings, const MeterClock& start, int records) {
  StoredFile file = new_file(DataType::power, settings, start);
  for (int record = 0; record < records; ++record)
    for (int phase = 1; phase <= phases_in_use(settings.wiring); ++phase) {
      const RawPhase raw = load.raw(phase, settings, record_time_s(start, settings, record));
      file.bytes += word_bytes(std::array{raw.v, raw.i, raw.w, raw.p, raw.q});
    }
  return file;
}

StoredFile harmonics_file(const Load& load, const MeterSettings& settings, const MeterClock& start,
                          int records) {
  StoredFile file = new_file(DataType::harmonics, settings, start);
  for (int record = 0; record < records; ++record) {
    const Spectrum spectrum = measured_spectrum(load, settings, record_time_s(start, settings, record));
    file.bytes += word_bytes(harmonics_record(spectrum, settings.frequency_code));
  }
  return file;
}

StoredFile hardcopy_file(const Load& load, const MeterSettings& settings, const MeterClock& start) {
  StoredFile file = new_file(DataType::hardcopy, settings, start);
  for (const char dots : screen_picture(load, settings, start, time_of_day_s(start)).bytes())
    file.bytes += std::string(1, '\0') + dots;
  return file;
}

std::string transient_report(const TransientRecording& recording, std::span<const TransientEvent> events) {
  const MeterClock& start = recording.start;
  std::string report;
  for (const int value : {start.year % 100, start.month, start.day, start.hour, start.minute, start.second})
    report += padded(value, 2, '0') + ",";
  report += std::to_string(recording.pt_ratio) + "," + std::to_string(recording.reference_raw) + "," +
            std::to_string(recording.threshold_percent) + "\r\n";
  int number = 0;
  for (const TransientEvent& event : events) report += event_line(++number, event);
  return report;
}

Memory example_memory() {
  constexpr int day_of_month = 28;  // the 3P4W file runs over midnight into March
  const Load load;
  MeterSettings settings;
  Memory memory;
  for (const Wiring wiring : {Wiring::w3p4w, Wiring::w3p3w, Wiring::w1p3w, Wiring::w1p2w}) {
    settings.wiring = wiring;
    const bool three_phases = wiring == Wiring::w3p4w;
    memory.store(power_file(load, settings, {2026, 2, day_of_month, three_phases ? 23 : 9, 50, 0},
                            three_phases ? 450 : 60));
  }
  settings.wiring = Wiring::w3p4w;
  for (settings.channel = 0; settings.channel <= 1; ++settings.channel)
    memory.store(harmonics_file(load, settings, {2026, 3, 2, 14 + settings.channel, 5, 30}, 20));
  settings.channel = 0;
  memory.store(hardcopy_file(load, settings, {2026, 3, 2, 16, 20, 45}));
  memory.transient_report = example_report();
  return memory;
}

Memory small_memory() {
  constexpr MeterClock start = {2026, 3, 5, 8, 15, 0};
  const Load load;
  MeterSettings settings;
  settings.wiring = Wiring::w1p2w;
  Memory memory;
  memory.store(power_file(load, settings, start, 3));
  memory.store(harmonics_file(load, settings, start, 1));
  memory.store(hardcopy_file(load, settings, start));
  return memory;
}

}  // namespace halden::simulator
