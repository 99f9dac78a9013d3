// The settings panel of the main window: sends a setting to the meter, and reads the meter's settings again.
//
// A setting goes out as a letter, the characters of the new value and a carriage return, slowly, because the
// meter takes them one at a time:
//
//   0 s "C"   2.0 s "1"   2.5 s "0"   3.0 s "0"   3.7 s CR   3.9 s the status query begins
//
// The meter acknowledges nothing; the status read afterwards shows what it holds now. Energies and demands
// are reset after every exchange of the panel.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "link/link.h"
#include "live/power/power_view.h"
#include "platform/platform.h"
#include "screen/meter_rec/settings.h"
#include "screen/window.h"

namespace halden {

class SettingsPanel {
 public:
  // All outlive the panel. Connects the buttons of the settings and "Update Now".
  SettingsPanel(const Platform& platform, Link& link, PowerView& power, Window& meter_rec)
      : platform_(platform), link_(link), power_(power), window_(meter_rec) {
    connect();
  }
  SettingsPanel(const SettingsPanel&) = delete;
  SettingsPanel& operator=(const SettingsPanel&) = delete;

  // Sends the text of the box: CT ratio, PT ratio, demand period in minutes, sampling interval in seconds
  // (even numbers only), frequency (50, 60, anything else automatic).
  void set(Setting setting, const std::string& text);

  // "Update Now": reads the status.
  void get_hz();

 private:
  void connect();
  void click(const SettingNames& names);
  Afterwards send(const SettingNames& names, const std::string& text);
  void tell_result(const SettingNames& names, const std::string& text);
  std::string unread_result() const;
  void tell(const std::string& sentence);
  void send_value(Setting setting, const std::string& text);
  void tell_sending(const SettingNames& names);

  Platform platform_;
  Link& link_;
  PowerView& power_;
  Window& window_;
  // By setting: what stood in its box when its button was clicked. The click itself may have to wait for the
  // end of another exchange, which fills the boxes.
  std::array<std::optional<std::string>, meter_settings.size()> pressed_;
  // What is being sent: the second click of a double click asks for the same again.
  std::optional<std::pair<Setting, std::string>> being_sent_;
  // What the status line said last about settings, and when (monotonic).
  std::string result_;
  double result_s_ = 0;
  std::string unread_;  // the result that stays in front of what is told about the next setting
};

// The number a text stands for: for the frequency 50, 60, or 0 for automatic.
double setting_value(Setting setting, std::string_view text);

}  // namespace halden
