#include "simulator/setting_commands.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace halden::simulator {

namespace {

constexpr std::string_view command_letters = "CVMSFR";
constexpr std::size_t longest_value = 5;

// After a program that ended in the middle of a command, the meter must answer requests again.
constexpr double stale_after_s = 5.0;

std::optional<int> value_of(std::string_view text) {
  const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (text.empty() || text.size() > longest_value || !digits) return std::nullopt;
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

void apply(char letter, int value, MeterSettings& settings) {
  struct Target {
    char letter;
    int MeterSettings::*member;
  };
  constexpr std::array<Target, 4> targets = {{{'C', &MeterSettings::ct_ratio},
                                              {'V', &MeterSettings::pt_ratio},
                                              {'M', &MeterSettings::md_period},
                                              {'S', &MeterSettings::sample_seconds}}};
  if (letter == 'F') settings.frequency_code = value == 1 || value == 2 ? value : 0;
  for (const Target& target : targets)
    if (target.letter == letter && value > 0) settings.*target.member = value;
}

}  // namespace

bool SettingCommands::take(char byte, double now_s, MeterSettings& settings) {
  drop_stale(now_s);
  last_byte_s_ = now_s;
  if (letter_ == '\0') {
    if (command_letters.find(byte) == std::string_view::npos) return false;
    letter_ = byte;
    value_.clear();
  } else if (byte == '\r') {
    const std::optional<int> value = value_of(value_);
    if (letter_ == 'R')
      selected_file_ = value;
    else if (value)
      apply(letter_, *value, settings);
    letter_ = '\0';
  } else if (value_.size() <= longest_value) {
    value_ += byte;
  }
  return true;
}

void SettingCommands::drop_stale(double now_s) {
  if (now_s - last_byte_s_ > stale_after_s) letter_ = '\0';
}

}  // namespace halden::simulator
