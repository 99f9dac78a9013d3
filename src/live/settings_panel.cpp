#include "live/settings_panel.h"

#include <cmath>
#include <string>
#include <utility>

#include "live/once_per_sample.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "readings/numbers.h"

namespace halden {

// How one setting is sent.
struct Setting {
  enum class Value { characters, frequency_code };
  enum class Check { none, even };

  std::string_view letter;
  std::string_view box;
  Value value = Value::characters;
  Check check = Check::none;
  Yield after_letter = Yield::no;  // yes: pending events run once
  double extra_wait_s = 0;         // after the last character
};

namespace {

constexpr double letter_wait_s = 2.0;
constexpr double character_wait_s = 0.5;
constexpr double end_wait_s = 0.2;
constexpr std::string_view command_end = "\r";

constexpr Setting ct_setting = {.letter = "C", .box = "ct_value", .extra_wait_s = 0.2};
constexpr Setting pt_setting = {.letter = "V", .box = "pt_value", .after_letter = Yield::yes};
constexpr Setting md_setting = {.letter = "M", .box = "md_value"};
constexpr Setting sec_setting = {.letter = "S", .box = "sec_value", .check = Setting::Check::even};
constexpr Setting hz_setting = {.letter = "F", .box = "HZ_value", .value = Setting::Value::frequency_code};

// "1" for 50 Hz, "2" for 60 Hz, "0" for automatic.
std::string frequency_code(double hz) {
  if (hz == 50) return "1";
  return hz == 60 ? "2" : "0";
}

// The bytes of the first character of a text in UTF-8 that is not empty.
std::string_view first_character(std::string_view text) {
  const auto continues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  std::size_t length = 1;
  while (length < text.size() && continues(text[length])) ++length;
  return text.substr(0, length);
}

bool is_odd(double number) { return std::fmod(round_half_even(number), 2.0) != 0; }

}  // namespace

void SettingsPanel::set_ct() { send(ct_setting); }
void SettingsPanel::set_pt() { send(pt_setting); }
void SettingsPanel::set_md() { send(md_setting); }
void SettingsPanel::set_sec() { send(sec_setting); }
void SettingsPanel::set_hz() { send(hz_setting); }

void SettingsPanel::send(const Setting& setting) {
  polling_.stop_polling();
  waits_.wait_until_quiet();
  const std::string& text = std::as_const(window_)[setting.box].text;
  if (setting.check == Setting::Check::even && is_odd(leading_number(text))) {
    platform_.dialogs.message(
        {"Sampling time must be an even number (2, 4, 6, ...), please re-enter !", "", Icon::exclamation});
    polling_.resume_polling(1);
    return;
  }
  on_sending();
  platform_.port.send(setting.letter);
  if (setting.after_letter == Yield::yes) let_events_run(platform_.clock);
  waits_.timed_wait(letter_wait_s, Yield::no);
  send_value(setting, text);
  platform_.port.send(command_end);
  waits_.timed_wait(end_wait_s, Yield::no);
  query_.query_meter_status();
  polling_.resume_polling(1);
  reset_kwh();
}

void SettingsPanel::send_value(const Setting& setting, const std::string& text) {
  const bool as_typed = setting.value == Setting::Value::characters;
  const std::string value = as_typed ? text : frequency_code(leading_number(text));
  for (std::string_view rest = value; !rest.empty();) {
    const std::string_view character = first_character(rest);
    platform_.port.send(character);
    waits_.timed_wait(character_wait_s, Yield::no);
    rest.remove_prefix(character.size());
  }
  waits_.timed_wait(setting.extra_wait_s, Yield::no);
}

void SettingsPanel::get_hz() {
  polling_.stop_polling();
  query_.query_meter_status();
  arrange_for_system(status_.wiring_system, window_, label_column_left_);
  polling_.resume_polling(1);
  reset_kwh();
}

void SettingsPanel::reset_kwh() { reset_energy_and_demand(readings_, window_); }

}  // namespace halden
