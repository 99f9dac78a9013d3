#include <gtest/gtest.h>

#include <map>
#include <string>

#include "screen/meter_rec/main_window.h"
#include "screen/meter_rec/menus.h"

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
  EXPECT_EQ(changed_texts(window, designed),
            "system_label=系統|Label1_0=取樣秒數|Label1_2=時間|Label1_4=日期|phasor_button=向量圖|"
            "record_button=記錄|Command3D1=列印|settings_heading=電表設定|get_hz=讀取設定|"
            "energy_heading=電能與需量|reset_kwh=<- 歸零|zmenu=檔案|FileName=建立檔案名稱|FileStart=開始記錄|"
            "auto_record=自動|manual_record=手動|FileStop=停止記錄|ViewFile=瀏灠檔案|"
            "OpenPlotFile=電力記錄畫圖|show_plot_harmonics=諧波記錄畫圖|show_plot_waveform=波形記錄畫圖|"
            "show_plot_hardcopy=視窗記錄畫圖|view_harmonics=諧波|show_wave=波形|loggerPWR=記錄器|"
            "Option_Menu=選項|");
  window.apply_captions(Language::english);
  EXPECT_EQ(changed_texts(window, designed), "");
}

// The label of a power column carries its symbol, the caption its unit.
TEST(Captions, ControlsStartWithTheirDesignedTexts) {
  const Window window = make_main_window();
  std::string texts;
  for (const char* name : {"P1_label",
                           "S3_label",
                           "Q2_label",
                           "VAR2_value",
                           "Label1_1",
                           "Warning",
                           "VUR_label",
                           "set_sec",
                           "get_hz",
                           "reset_kwh",
                           "port_number_16",
                           "baud_rate",
                           "HelpManual_5",
                           "Ver",
                           "OpenPlotFile",
                           "show_50_harmonics",
                           "show_99_harmonics",
                           "show_50_angles",
                           "show_99_angles",
                           "close_harmonics"})
    texts += window[name].text + "|";
  EXPECT_EQ(texts,
            "W1|VA3|VAR2||2.0 SEC|No Com|VUR (Unbalance)|SEC|Update Now|<- Reset|COM 16|Baud Rate (9600)|"
            "Portuguese|V7.00|&Plot Power Data|50 Orders|99 Orders|50 Phases|99 Phases|close|");
  for (const char* hidden : {"Warning", "hold", "record_button", "Harmo_Graph1", "HScroll1", "CF_value"})
    EXPECT_FALSE(window[hidden].visible) << hidden;
}

TEST(Menus, ParentsStandBeforeTheirChildren) {
  std::map<std::string, int> children{{"", 0}};
  for (const MenuEntry& entry : menu_entries()) {
    ASSERT_TRUE(children.count(std::string(entry.parent))) << entry.name;
    ++children[std::string(entry.parent)];
    EXPECT_TRUE(children.emplace(entry.name, 0).second) << "twice: " << entry.name;
  }
  EXPECT_EQ(children[""], 6);
  EXPECT_EQ(children["zmenu"], 9);
  EXPECT_EQ(children["comm_port"], 16);
  EXPECT_EQ(children["HelpUserManual"], 6);
}

}  // namespace
}  // namespace halden
