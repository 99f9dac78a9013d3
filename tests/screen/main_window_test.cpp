// The designed texts of the main window, and where its columns stand for each wiring system.
#include "screen/meter_rec/main_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/panels.h"

namespace halden {
namespace {

// "name=text|" of every control whose text is not the designed one.
std::string changed_texts(const Window& window, const Window& designed) {
  std::string all;
  for (const auto& [name, control] : window.controls())
    if (control.text != designed[name].text) all += name + "=" + control.text + "|";
  return all;
}

TEST(Captions, ChineseIsShownAndEnglishIsDesigned) {
  Window window = make_main_window();
  const Window designed = window;
  window.apply_captions(Language::chinese);
  EXPECT_EQ(
      changed_texts(window, designed),
      "system_label=系統|Label1_0=取樣秒數|Label1_2=時間|Label1_4=日期|phasor_button=向量圖|"
      "record_button=記錄|Command3D1=列印|settings_heading=電表設定|get_hz=讀取設定|"
      "energy_heading=電能與需量|reset_kwh=<- 歸零|chart_percent=百分比|chart_angle=相位角|chart_50=50 次|"
      "chart_99=99 次|chart_without_largest=不含最大次|chart_copy=複製圖片|chart_copy_points=複製數據|"
      "chart_save=儲存圖片|zmenu=檔案|FileName=建立檔案名稱|FileStart=開始記錄|"
      "auto_record=自動|manual_record=手動|FileStop=停止記錄|ViewFile=瀏灠檔案|"
      "OpenPlotFile=電力記錄畫圖|show_plot_harmonics=諧波記錄畫圖|show_plot_waveform=波形記錄畫圖|"
      "show_plot_hardcopy=視窗記錄畫圖|export_numbers=匯出為數值...|recent_files=最近開啟的檔案|recent_power="
      "電力記錄|"
      "recent_harmonics=諧波記錄|recent_waveform=波形記錄|recent_hardcopy=視窗記錄|recent_text=瀏覽檔案|"
      "view_harmonics=諧波|show_wave=波形|loggerPWR=記錄器|"
      "Option_Menu=選項|");
  window.apply_captions(Language::english);
  EXPECT_EQ(changed_texts(window, designed), "");
}

// The label of a power column carries its symbol, the caption its unit.
TEST(Captions, ControlsStartWithTheirDesignedTexts) {
  const Window window = make_main_window();
  std::string texts;
  for (const char* name :
       {"P1_label", "S3_label", "Q2_label", "VAR2_value", "Label1_1", "Warning", "VUR_label", "set_sec",
        "get_hz", "reset_kwh", "port_number_16", "HelpManual_5", "Ver", "show_50_harmonics",
        "show_99_harmonics", "show_50_angles", "show_99_angles", "close_harmonics"})
    texts += window[name].text + "|";
  EXPECT_EQ(texts,
            "W1|VA3|VAR2||2.0 SEC|No Com|VUR (Unbalance)|SEC|Update Now|<- Reset|COM 16|"
            "Portuguese|V7.00|50 Orders|99 Orders|50 Phases|99 Phases|close|");
  for (const char* hidden : {"Warning", "hold", "record_button", "Harmo_Graph1", "HScroll1", "CF_value"})
    EXPECT_FALSE(window[hidden].visible) << hidden;
}

TEST(Captions, EveryQuantityBoxAndButtonSaysWhatItIsInBothLanguages) {
  Window window = make_main_window();
  const auto tooltip = [&window](std::string_view name, Language language) {
    window.apply_captions(language);
    return window[name].tooltip;
  };
  for (const DesignedControl& designed : main_window_design()) {
    const bool explained = designed.kind == ControlKind::value || designed.kind == ControlKind::edit_box ||
                           designed.kind == ControlKind::button;
    const bool of_next_views = designed.kind == ControlKind::value && !window[designed.name].visible;
    if (!explained || of_next_views) continue;
    const std::string english = tooltip(designed.name, Language::english);
    EXPECT_NE(english, "") << designed.name;
    EXPECT_NE(tooltip(designed.name, Language::chinese), english) << designed.name;
  }
  for (const auto& [name, part] : {std::pair("VA_MD_value", "highest mean apparent power"),
                                   {"PFH_sys_value", "WH (SYS) to VAH (SYS)"},
                                   {"d2_i_value", "Negative-sequence to positive-sequence current"},
                                   {"VAR2_value", "Reactive"},
                                   {"md_value", "Demand period in minutes"},
                                   {"pt_value", "voltage transformers"}})
    EXPECT_TRUE(tooltip(name, Language::english).find(part) != std::string::npos) << name;
}

std::vector<Panel> column_panels() {
  std::vector<Panel> panels = {line_panel(0), line_panel(1), line_panel(2)};
  for (const PhaseQuantity quantity : phase_quantities)
    for (std::size_t phase = 0; phase < phase_count; ++phase) panels.push_back(phase_panel(quantity, phase));
  panels.insert(panels.end(), unbalance_panels().begin(), unbalance_panels().end());
  return panels;
}

// The stems of the panels that are shown.
std::string shown(const Window& window) {
  std::string stems;
  for (const Panel& panel : column_panels()) {
    EXPECT_EQ(window[panel.label].visible, window[panel.value].visible) << panel.value;
    if (window[panel.value].visible) stems += panel.value.substr(0, panel.value.find("_value")) + " ";
  }
  return stems;
}

// Where line voltages, voltages and currents stand, in design pixels.
std::string lefts(const Window& window) {
  std::string places;
  for (const char* stem : {"V12", "V23", "V31", "V1", "V2", "V3", "I1", "I2", "I3"}) {
    const float left = window[std::string(stem) + "_value"].left;
    EXPECT_EQ(window[std::string(stem) + "_label"].left, left) << stem;
    places += std::to_string(std::lround(left / units_per_pixel)) + " ";
  }
  return places;
}

// Items move alone: V1 without V2 and V3, and what a wiring does not name keeps the place an earlier one gave
// it.
TEST(Columns, EachWiringShowsAndMovesItsOwn) {
  const std::string one_phase = "V1 I1 Phase1 ";
  const std::string two_phases = "V1 V2 I1 I2 W1 W2 VA1 VA2 VAR1 VAR2 PF1 PF2 Phase1 Phase2 ";
  const std::string lines = "V12 V23 V31 I1 I2 I3 VUR d0_v d2_v IUR d0_i d2_i ";
  const std::string all =
      "V12 V23 V31 V1 V2 V3 I1 I2 I3 W1 W2 W3 VA1 VA2 VA3 VAR1 VAR2 VAR3 PF1 PF2 PF3 Phase1 Phase2 Phase3 "
      "VUR d0_v d2_v IUR d0_i d2_i ";
  const std::tuple<int, std::string, std::string> in_turn[] = {
      {0, one_phase, "46 46 46 595 178 178 746 310 310 "},
      {1, two_phases, "46 46 46 178 178 178 310 310 310 "},
      {2, lines, "595 595 595 178 178 178 746 746 746 "},
      {1, two_phases, "595 595 595 178 178 178 310 310 746 "},
      {0, one_phase, "595 595 595 595 178 178 746 310 746 "},
      {3, all, "46 46 46 178 178 178 310 310 310 "},
      {-1, one_phase, "46 46 46 595 178 178 746 310 310 "},
      {4, one_phase, "46 46 46 595 178 178 746 310 310 "},
  };
  Window window = make_main_window();
  const LabelColumns columns = read_label_columns(window);
  for (const auto& [system, panels, places] : in_turn) {
    arrange_for_system(static_cast<Wiring>(system), window, columns);
    EXPECT_EQ(shown(window), panels) << system;
    EXPECT_EQ(lefts(window), places) << system;
  }
}

// 1P2W shows three columns of 145, 157 and 115 pixels in the places of VA, VAR and angle: (1080 - 2 * 6) /
// 417 = 2.5612 times as wide they fill the 1080 pixels of the grid from 46 to 1126.
TEST(Columns, VisibleColumnsFillTheGridOnTheScreen) {
  Window window = make_main_window();
  const LabelColumns columns = read_label_columns(window);
  const auto edges = [&window](const std::string& control) {
    const Place place = place_on_screen(window, control);
    return std::to_string(std::lround(place.left / units_per_pixel)) + ".." +
           std::to_string(std::lround((place.left + place.width) / units_per_pixel));
  };
  EXPECT_EQ(edges("V12_value") + " " + edges("Q3_label"), "46..172 746..903");
  arrange_for_system(Wiring::w1p2w, window, columns);
  EXPECT_EQ(edges("V1_value") + " " + edges("I1_label") + " " + edges("Phase1_value"),
            "46..417 423..825 831..1126");
  EXPECT_EQ(edges("W_sys_value"), "16..287");
  arrange_for_system(Wiring::w3p3w, window, columns);
  EXPECT_EQ(edges("V31_value") + " " + edges("I3_value"), "46..562 568..1126");
}

TEST(Columns, AnItemIsAsWideAsTheColumnItStandsInAndComesBack) {
  Window window = make_main_window();
  const Window designed = window;
  const LabelColumns columns = read_label_columns(window);
  arrange_for_system(Wiring::w3p3w, window, columns);
  EXPECT_EQ(window["V12_value"].width, window["VA1_value"].width);
  for (const Wiring system : {Wiring::w1p2w, Wiring::w1p3w, Wiring::w3p4w})
    arrange_for_system(system, window, columns);
  for (const Panel& panel : column_panels()) {
    EXPECT_EQ(window[panel.value].left, designed[panel.value].left) << panel.value;
    EXPECT_EQ(window[panel.value].width, designed[panel.value].width) << panel.value;
  }
}

}  // namespace
}  // namespace halden
