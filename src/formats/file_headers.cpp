#include "formats/file_headers.h"

#include <array>

#include "formats/record_field.h"
#include "readings/wave_texts.h"

namespace halden {

namespace {

constexpr int order_count = 100;
constexpr int sample_count = 1024;

constexpr std::string_view harmonics_names = "DATE, TIME, RMS, PEAK+, PEAK-, THD-F, VI_1, HZ, RANGE";

// With its comma; "????," for an unknown system.
std::string_view wiring_text(Wiring wiring_system) {
  constexpr std::array<std::string_view, 4> texts = {"1P2W,", "1P3W,", "3P3W,", "3P4W,"};
  return is_known(wiring_system) ? texts[table_index(wiring_system)] : "????,";
}

// The five settings, each after `separator`, a blank or a comma.
std::string settings_part(std::string_view separator, const SettingTexts& settings) {
  std::string part;
  const auto add = [&](std::string_view name, std::string_view text) {
    part += separator;
    part += name;
    part += text;
  };
  add("Hz=", settings.hz);
  add("MD=", settings.md);
  add("SEC=", settings.sec);
  add("CT=", settings.ct);
  add("VT=", settings.vt);
  return part;
}

std::string source_part(std::string_view separator, const WaveSource& source) {
  std::string part(separator);
  part += "INPUT=";
  part += input_name(source.harmonic_channel);
  part += separator;
  part += "SYS=";
  part += wiring_text(source.wiring_system);
  return part;
}

const char* option_text(const WaveSource& source) { return source.harmonic_option == 0 ? "%" : "D"; }

}  // namespace

// The wiring text ends with the comma that separates it from the first setting.
std::string power_settings_line(Wiring wiring_system, const SettingTexts& settings) {
  return std::string(wiring_text(wiring_system)) + settings_part(",", settings).substr(1);
}

std::string stored_power_settings_line(Wiring wiring_system, const SettingTexts& settings, int channel) {
  return power_settings_line(wiring_system, settings).append(",INPUT=").append(input_name(channel));
}

std::string harmonics_settings_line(const WaveSource& source, const SettingTexts& settings) {
  return "HARMO" + settings_part(",", settings) + source_part(",", source) +
         ",NO.=" + std::to_string(order_count) + " ,OPTION=" + option_text(source);
}

// The system text brings the comma before "NO.=" with it.
std::string stored_harmonics_settings_line(const WaveSource& source, const SettingTexts& settings) {
  return "HARMO" + settings_part(",", settings) + source_part(",", source) +
         "NO.=" + std::to_string(stored_order_count) + " ,OPTION=%";
}

std::string header_lines(std::string settings, const std::string& columns) {
  return settings.append(line_end).append(columns).append(line_end);
}

std::string harmonics_column_line() {
  return std::string(harmonics_names) + numbered_names(",", order_count);
}

std::string stored_harmonics_column_line() {
  return std::string(harmonics_names) + numbered_names(",", stored_order_count);
}

std::string waveform_settings_line(const WaveSource& source, const SettingTexts& settings) {
  return "WAVE" + settings_part(" ", settings) + source_part(" ", source) +
         " NO.=" + std::to_string(sample_count) + "  OPTION=" + option_text(source);
}

std::string waveform_column_line() {
  return "DATE, TIME" + numbered_names(" ", sample_count) + " OPTION RMS PEAK+ PEAK- HZ THD-F VI_1";
}

}  // namespace halden
