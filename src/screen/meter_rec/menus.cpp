#include "screen/meter_rec/menus.h"

#include <array>
#include <vector>

#include "platform/serial_port.h"
#include "screen/window.h"

namespace halden {

namespace {

const std::vector<MenuEntry> plain_entries = {
    {"", "zmenu", "File"},
    {"zmenu", "FileName", "&Create Data File"},
    {"zmenu", "FileStart", "&Start Recording", Entry::disabled},
    {"FileStart", "auto_record", "Auto"},
    {"FileStart", "manual_record", "Manually"},
    {"zmenu", "FileStop", "&End Recording", Entry::disabled},
    {"zmenu", "ViewFile", "&View File"},
    {"zmenu", "OpenPlotFile", "&Plot Power Data"},
    {"zmenu", "show_plot_harmonics", "Plot &Harmonics"},
    {"zmenu", "show_plot_waveform", "Plot &Waveform"},
    {"zmenu", "show_plot_hardcopy", "Plot &Hardcopy"},
    {"zmenu", "export_numbers", "Export as &Numbers..."},
    {"zmenu", "recent_files", "&Recent Files", Entry::disabled},
    {"recent_files", "recent_power", "Power Data"},
    {"recent_files", "recent_harmonics", "Harmonics"},
    {"recent_files", "recent_waveform", "Waveform"},
    {"recent_files", "recent_hardcopy", "Hardcopy"},
    {"recent_files", "recent_text", "View File"},
    {"zmenu", "quit", "E&xit"},
    {"", "view_harmonics", "Harmonics"},
    {"view_harmonics", "show_percentage", "%"},
    {"show_percentage", "show_50_harmonics", "50 Orders"},
    {"show_percentage", "show_99_harmonics", "99 Orders"},
    {"view_harmonics", "show_phase_angle", "phase"},
    {"show_phase_angle", "show_50_angles", "50 Phases"},
    {"show_phase_angle", "show_99_angles", "99 Phases"},
    {"view_harmonics", "close_harmonics", "close"},
    {"", "show_wave", "Waveform"},
    {"show_wave", "open_waveform", "open"},
    {"show_wave", "close_waveform", "close"},
    {"", "loggerPWR", "Datalogger"},
    {"", "Option_Menu", "Option"},
    {"Option_Menu", "SampleRate", "&Sample Rate"},
    {"Option_Menu", "comm_port", "COM"},
    {"Option_Menu", "baud_rate", "Baud Rate (9600)"},
    {"Option_Menu", "language", "Language"},
    {"", "Help", "&Help"},
    {"Help", "HelpUserManual", "User manual"},
    {"Help", "HelpAbout", "About"},
    {"Help", "Ver", "V7.00"},
};

constexpr std::array<std::string_view, 2> languages = {"English", "Chinese"};
constexpr std::array<std::string_view, 6> manuals = {"English", "French",  "German",
                                                     "Spanish", "Italian", "Portuguese"};

constexpr std::string_view recent_files = "recent_files";

void add_recent_entries(std::vector<MenuEntry>& entries) {
  for (const MenuEntry& menu : plain_entries)
    for (int index = 0; menu.parent == recent_files && index < recent_entries; ++index)
      entries.push_back({menu.name, element(menu.name, index), ""});
}

std::vector<MenuEntry> all_entries() {
  std::vector<MenuEntry> entries = plain_entries;
  add_recent_entries(entries);
  for (int port = first_port_number; port <= last_port_number; ++port)
    entries.push_back({"comm_port", element("port_number", port), "COM " + std::to_string(port)});
  for (std::size_t k = 0; k < languages.size(); ++k)
    entries.push_back({"language", element("sel_language", static_cast<int>(k)), std::string(languages[k])});
  for (std::size_t k = 0; k < manuals.size(); ++k)
    entries.push_back(
        {"HelpUserManual", element("HelpManual", static_cast<int>(k)), std::string(manuals[k])});
  return entries;
}

}  // namespace

std::string recent_menu(std::string_view kind) { return "recent_" + std::string(kind); }

std::span<const MenuEntry> menu_entries() {
  static const std::vector<MenuEntry> entries = all_entries();
  return entries;
}

}  // namespace halden
