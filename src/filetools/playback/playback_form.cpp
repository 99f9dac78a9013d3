#include "filetools/playback/playback_form.h"

#include <array>
#include <string>

namespace halden {

namespace {

constexpr std::array captions = {Caption{"read_again", {"Read &Again", "重新讀取(&A)"}},
                                 Caption{"chart_copy", {"&Copy Picture", "複製圖片(&C)"}},
                                 Caption{"chart_copy_points", {"Copy &Points", "複製數據(&P)"}},
                                 Caption{"chart_save", {"&Save Picture...", "儲存圖片(&S)..."}},
                                 Caption{"save_points", {"Save Points as CS&V...", "數據存成 CSV(&V)..."}},
                                 Caption{playback_reading, {"Reading the file", "讀取檔案中"}},
                                 Caption{playback_cancel, {"Cancel", "取消"}}};

constexpr std::array tooltips = {Caption{
    playback_scroll, {"Previous and next record: Ctrl+Up, Ctrl+Down", "上一筆與下一筆：Ctrl+↑、Ctrl+↓"}}};

constexpr std::array accessible_names = {
    Caption{playback_chart_name, {"Chart", "圖表"}}, Caption{playback_list, {"Harmonic values", "諧波值"}},
    Caption{playback_scroll, {"Record", "紀錄"}}, Caption{playback_progress, {"Progress", "進度"}}};

}  // namespace

std::span<const MenuEntry> playback_menu_entries() {
  static const std::array<MenuEntry, 14> entries = {
      {{"", "playback_file_menu", "&File"},
       {"playback_file_menu", "openfileforplot", "&Open"},
       {"playback_file_menu", "read_again", "Read &Again", Entry::disabled},
       {"playback_file_menu", "chart_copy", ""},
       {"playback_file_menu", "chart_copy_points", ""},
       {"playback_file_menu", "chart_save", ""},
       {"playback_file_menu", "save_points", ""},
       {"playback_file_menu", "exit_plot_harmonics", "E&xit"},
       {"", "playback_option_menu", "&Option"},
       {"playback_option_menu", "set_har_51", "50 Harmonics"},
       {"playback_option_menu", "set_har_100", "99 Harmonics"},
       {"", "playback_print_menu", "&Print"},
       {"playback_print_menu", "set_color", "Color"},
       {"playback_print_menu", "set_BW", "Black and White"}}};
  return entries;
}

std::span<const Panel> playback_panels() {
  static const std::array<Panel, 11> panels = {{{"DATE_value", "DATE_label", "DATE"},
                                                {"TIME_value", "TIME_label", "TIME"},
                                                {"RMS_value", "RMS_label", "RMS"},
                                                {"PEAK_P_value", "PEAK_P_label", "PEAK+"},
                                                {"PEAK_N_value", "PEAK_N_label", "PEAK-"},
                                                {"CF_wave_value", "CF_wave_label", "C.F."},
                                                {"THD_value", "THD_label", "THD-F"},
                                                {"VI_1_value", "VI_1_label", "VI (1)"},
                                                {"HZ_value", "HZ_label", "HZ"},
                                                {std::string(playback_index), "INDEX_label", "INDEX"},
                                                {"TOTAL_R_value", "TOTAL_R_label", "TOTAL"}}};
  return panels;
}

Window make_playback_window() {
  Window window("P_Harmo");
  window.set_caption("Plot Harmonics");
  for (const MenuEntry& entry : playback_menu_entries()) {
    window.add(entry.name, {});
    window.set_text(entry.name, entry.caption);
    window.set_enabled(entry.name, entry.state == Entry::enabled);
  }
  for (const Panel& panel : playback_panels()) {
    window.add(panel.label, {});
    window.set_text(panel.label, panel.caption);
    window.add(panel.value, {});
  }
  for (const std::string_view name :
       {playback_chart_name, playback_list, playback_about_line, playback_note_line, status_hint})
    window.add(std::string(name), {});
  for (const std::string_view name :
       {playback_scroll, playback_reading, playback_progress, playback_cancel}) {
    window.add(std::string(name), {});
    window.set_visible(name, false);
  }
  window.set_captions(captions);
  window.set_tooltips(tooltips);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace halden
