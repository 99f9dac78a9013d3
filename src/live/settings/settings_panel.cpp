#include "live/settings/settings_panel.h"

#include <cmath>
#include <string_view>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "readings/numbers.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double letter_wait_s = 2.0;
constexpr double character_wait_s = 0.5;
constexpr double ct_extra_wait_s = 0.2;  // after the last character
constexpr double end_wait_s = 0.2;
constexpr std::string_view command_end = "\r";

// A result stays in the status line at least this long; when another setting follows, in front of its texts.
constexpr double reading_time_s = 5.0;

constexpr Text is_now = {"{} is now {}", "{} 現為 {}"};
constexpr Text was_kept = {"The meter kept {} {}", "電表保留 {} {}"};
constexpr Text and_then = {"{}. {}", "{}。{}"};
constexpr Text file_comes = {"The meter is still sending a stored file. Try again when it has ended.",
                             "電表仍在傳送儲存的檔案，請稍後再試。"};
constexpr Text sending = {"Sending {} to the meter...", "正在傳送 {} 至電表…"};

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

double setting_value(Setting setting, std::string_view text) {
  const double number = leading_number(text);
  return setting == Setting::hz && number != 50 && number != 60 ? 0 : number;
}

void SettingsPanel::connect() {
  for (const SettingNames& names : meter_settings) {
    auto& pressed = pressed_[static_cast<std::size_t>(names.setting)];
    window_.on_press(names.button, [this, &names, &pressed] { pressed = window_[names.box].text; });
    window_.on_click(names.button, [this, &names] { click(names); });
  }
  link_.gate.connect(window_, "get_hz", [this] { get_hz(); });
}

void SettingsPanel::click(const SettingNames& names) {
  const auto& pressed = pressed_[static_cast<std::size_t>(names.setting)];
  const std::string text = pressed.value_or(window_[names.box].text);
  if (being_sent_ == std::pair(names.setting, text)) return;
  link_.gate.run(std::string(names.button), [this, &names, text] { set(names.setting, text); });
}

void SettingsPanel::set(Setting setting, const std::string& text) {
  const SettingNames& names = names_of(setting);
  unread_ = unread_result();
  being_sent_ = {setting, text};
  const Afterwards afterwards = link_.exchange.run([&] { return send(names, text); });
  being_sent_.reset();
  window_.set_text(status_hint, unread_);
  if (afterwards != Afterwards::read_status) return;
  if (link_.query.succeeded()) tell_result(names, text);
  power_.reset_kwh();
}

// What the meter holds now, whether it took the setting or not.
void SettingsPanel::tell_result(const SettingNames& names, const std::string& text) {
  const std::string& held = window_[names.box].text;
  const bool taken = setting_value(names.setting, held) == setting_value(names.setting, text);
  tell((taken ? is_now : was_kept).with(link_.state.language, {names.caption, held}));
  result_ = window_[status_hint].text;
  result_s_ = platform_.clock.monotonic_s();
}

std::string SettingsPanel::unread_result() const {
  const bool shown = window_[status_hint].text == result_;
  return shown && platform_.clock.monotonic_s() - result_s_ < reading_time_s ? result_ : std::string();
}

void SettingsPanel::tell(const std::string& sentence) {
  window_.set_text(status_hint,
                   unread_.empty() ? sentence : and_then.with(link_.state.language, {unread_, sentence}));
}

Afterwards SettingsPanel::send(const SettingNames& names, const std::string& text) {
  if (!link_.query.line_is_free()) {
    platform_.dialogs.message({std::string(file_comes.in(link_.state.language)), "", Icon::exclamation});
    return Afterwards::just_poll;
  }
  link_.waits.wait_until_quiet();
  if (names.setting == Setting::sec && is_odd(leading_number(text))) {
    platform_.dialogs.message(
        {"Sampling time must be an even number (2, 4, 6, ...), please re-enter !", "", Icon::exclamation});
    return Afterwards::just_poll;
  }
  tell_sending(names);
  platform_.port.send(names.letter);
  if (names.setting == Setting::pt) let_events_run(platform_.clock);
  link_.waits.timed_wait(letter_wait_s, Yield::no);
  send_value(names.setting, text);
  platform_.port.send(command_end);
  link_.waits.timed_wait(end_wait_s, Yield::no);
  return Afterwards::read_status;
}

// The program takes no input for several seconds: the status line says why.
void SettingsPanel::tell_sending(const SettingNames& names) {
  tell(sending.with(link_.state.language, {names.caption}));
}

void SettingsPanel::send_value(Setting setting, const std::string& text) {
  const std::string value = setting == Setting::hz ? frequency_code(leading_number(text)) : text;
  for (std::string_view rest = value; !rest.empty();) {
    const std::string_view character = first_character(rest);
    platform_.port.send(character);
    link_.waits.timed_wait(character_wait_s, Yield::no);
    rest.remove_prefix(character.size());
  }
  if (setting == Setting::ct) link_.waits.timed_wait(ct_extra_wait_s, Yield::no);
}

// The status query also arranges the columns for the wiring system it has read.
void SettingsPanel::get_hz() {
  link_.exchange.run([] { return Afterwards::read_status; });
  power_.reset_kwh();
}

}  // namespace halden
