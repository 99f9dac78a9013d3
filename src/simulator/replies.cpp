#include "simulator/replies.h"

#include <array>
#include <chrono>
#include <cstddef>

#include "simulator/spectrum.h"

namespace halden::simulator {

namespace {

// Right-aligned with blanks, exactly `width` characters; what does not fit becomes the largest value that
// does.
std::string blank_padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() > width) digits = value < 0 ? "-" + std::string(width - 1, '9') : std::string(width, '9');
  return std::string(width - digits.size(), ' ') + digits;
}

// At least `width` characters with leading zeros, the sign in front; a wider value is as wide as it is.
std::string zero_padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  if (digits.size() < width) digits.insert(sign, width - digits.size(), '0');
  return digits;
}

std::string phase_group(int phase, const RawPhase& raw) {
  struct Field {
    char letter;
    int RawPhase::*value;
  };
  constexpr std::array<Field, 5> fields = {{{'V', &RawPhase::v},
                                            {'I', &RawPhase::i},
                                            {'W', &RawPhase::w},
                                            {'P', &RawPhase::p},
                                            {'Q', &RawPhase::q}}};
  std::string group;
  for (const Field& field : fields) {
    if (!group.empty()) group += "  ";
    group += field.letter + std::to_string(phase) + "=" + blank_padded(raw.*field.value, 6);
  }
  return group;
}

constexpr std::size_t component_width = 7;

std::string order_fields(const Spectrum& spectrum) {
  std::string fields;
  for (std::size_t k = 0; k < order_count; ++k)
    fields += " " + zero_padded(static_cast<int>(k), 2) + " " +
              zero_padded(spectrum.cos[k], component_width) + " " +
              zero_padded(spectrum.sin[k], component_width);
  return fields;
}

std::string sample_bytes(const Spectrum& spectrum) {
  std::string bytes;
  for (const int sample : waveform(spectrum)) {
    const auto bits = static_cast<unsigned>(sample);
    bytes += static_cast<char>(bits >> 8 & 0xFFU);
    bytes += static_cast<char>(bits & 0xFFU);
  }
  return bytes;
}

MeterClock clock_after(const MeterClock& start, double uptime_s) {
  using namespace std::chrono;
  const sys_days start_day = year(start.year) / start.month / start.day;
  const sys_seconds now = start_day + hours(start.hour) + minutes(start.minute) + seconds(start.second) +
                          seconds(static_cast<long long>(uptime_s));
  const sys_days today = floor<days>(now);
  const year_month_day date(today);
  const hh_mm_ss time(now - today);
  return {int(date.year()),
          static_cast<int>(unsigned(date.month())),
          static_cast<int>(unsigned(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

std::array<int, 35> status_values(const MeterSettings& s, const MeterClock& clock) {
  const LoggerSettings& logger = s.logger;
  return {static_cast<int>(s.mode),
          s.channel,
          static_cast<int>(s.wiring),
          s.frequency_code,
          0,
          s.pt_ratio,
          s.ct_ratio,
          s.sample_seconds,
          0,
          s.harmonic_order,
          0,
          s.md_period,
          logger.data_type,
          logger.channel,
          logger.wiring,
          logger.frequency_code,
          logger.current_range * 256,
          logger.pt_ratio,
          logger.ct_ratio,
          logger.sample_seconds,
          logger.clamp_flags,
          0,
          0,
          s.current_range,
          0,
          0,
          s.clamp_flags,
          logger.file_index,
          clock.year % 1000,
          clock.month,
          clock.day,
          clock.hour,
          clock.minute,
          clock.second,
          logger.file_count};
}

}  // namespace

std::string power_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  std::string frame;
  for (int phase = 1; phase <= phases_in_use(settings.wiring); ++phase)
    frame += phase_group(phase, load.raw(phase, settings, uptime_s));
  return frame;
}

std::string harmonics_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  const Spectrum spectrum = measured_spectrum(load, settings, uptime_s);
  const Summary summary = summarize(spectrum);
  return "BO=" + blank_padded(settings.channel, 5) + "R=" + blank_padded(summary.rms, 6) +
         "P=" + blank_padded(summary.peak_plus, 6) + "N=" + blank_padded(summary.peak_minus, 6) +
         "H=" + blank_padded(settings.frequency_code, 6) + order_fields(spectrum) +
         "T=" + blank_padded(summary.thd_tenths, 6) + "V=" + blank_padded(summary.fundamental, 6) + "E";
}

std::string waveform_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  struct Field {
    char tag;
    int value;
  };
  const Spectrum spectrum = measured_spectrum(load, settings, uptime_s);
  const Summary summary = summarize(spectrum);
  const std::array<Field, 7> fields = {{{'O', settings.channel},
                                        {'R', summary.rms},
                                        {'P', summary.peak_plus},
                                        {'N', summary.peak_minus},
                                        {'H', settings.frequency_code},
                                        {'T', summary.thd_tenths},
                                        {'V', summary.fundamental}}};
  std::string frame = "B " + sample_bytes(spectrum);
  for (const Field& field : fields)
    frame += std::string(" ") + field.tag + "=" + blank_padded(field.value, 5);
  return frame + " E";
}

std::string status_reply(const MeterSettings& settings, double uptime_s) {
  const MeterClock told = settings.logger.file_start.value_or(clock_after(settings.clock_start, uptime_s));
  std::string reply;
  for (const int value : status_values(settings, told)) reply += zero_padded(value, 5) + " ";
  return reply;
}

}  // namespace halden::simulator
