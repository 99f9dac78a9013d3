// The five settings of the meter: their names in the protocol, on the screen and on the command line.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace halden {

enum class Setting { ct, pt, md, sec, hz };

struct SettingNames {
  Setting setting;
  std::string_view letter;  // begins the command that sends it
  std::string_view box;     // the edit box and the button beside it
  std::string_view button;
  std::string_view caption;  // of the button
  int row;                   // of both in the panel, from the top
  int status_field;          // where the status reply holds it, from 1
  std::string_view name;     // on the command line
};

// In the order of Setting.
inline constexpr std::array<SettingNames, 5> meter_settings = {
    {{Setting::ct, "C", "ct_value", "set_ct", "CT", 0, 7, "ct"},
     {Setting::pt, "V", "pt_value", "set_pt", "PT", 1, 6, "pt"},
     {Setting::md, "M", "md_value", "set_md", "MD", 3, 12, "md"},
     {Setting::sec, "S", "sec_value", "set_sec", "SEC", 2, 8, "sec"},
     {Setting::hz, "F", "HZ_value", "set_hz", "HZ", 4, 4, "hz"}}};

constexpr const SettingNames& names_of(Setting setting) {
  return meter_settings[static_cast<std::size_t>(setting)];
}

}  // namespace halden
