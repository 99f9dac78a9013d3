#include "screen/captions.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "screen/main_window.h"
#include "screen/menus.h"

namespace halden {
namespace {

// "name=text|" of every control whose text is not the designed one.
std::string changed_texts(const Window& window, const Window& designed) {
  std::string all;
  for (const auto& [name, control] : window.controls())
    if (control.text != designed[name].text) all += name + "=" + control.text + "|";
  return all;
}

TEST(Captions, ChineseIsShownAndAnyOtherLanguageIsTheDesignedEnglish) {
  Screen screen;
  const Screen designed;
  apply_captions(1, screen);
  EXPECT_EQ(changed_texts(screen.meter_rec, designed.meter_rec),
            "system_label=系統|Label1_0=取樣秒數|Label1_2=時間|Label1_4=日期|phasor_button=向量圖|"
            "record_button=記錄|Command3D1=列印|settings_heading=電表設定|get_hz=讀取設定|"
            "energy_heading=電能與需量|reset_kwh=<- 歸零|zmenu=檔案|FileName=建立檔案名稱|FileStart=開始記錄|"
            "auto_record=自動|manual_record=手動|FileStop=停止記錄|ViewFile=瀏灠檔案|"
            "OpenPlotFile=電力記錄畫圖|show_plot_harmonics=諧波記錄畫圖|show_plot_waveform=波形記錄畫圖|"
            "show_plot_hardcopy=視窗記錄畫圖|view_harmonics=諧波|show_wave=波形|loggerPWR=記錄器|"
            "Option_Menu=選項|");
  EXPECT_EQ(changed_texts(screen.logger, designed.logger),
            "Label2=讀取記錄器設定|Panel3D2=記錄器設定|Command1=清除所有記錄|Command2=下載諧波記錄|"
            "Command3=下載驟升驟降記錄|Read_All=下載電力記錄|DL_HC=下載視窗記錄|DL_All=下載所有檔案|");
  for (const std::int16_t other : {std::int16_t{7}, english}) {
    apply_captions(other, screen);
    EXPECT_EQ(changed_texts(screen.meter_rec, designed.meter_rec), "") << other;
    EXPECT_EQ(changed_texts(screen.logger, designed.logger), "") << other;
    apply_captions(chinese, screen);
  }
}

// The label of a power column carries its symbol, the caption its unit.
TEST(Captions, ControlsStartWithTheirDesignedTexts) {
  const Screen screen;
  std::string texts;
  for (const char* name : {"P1_label", "S3_label", "Q2_label", "VAR2_value", "Label1_1", "Warning",
                           "VUR_label", "set_sec", "get_hz", "reset_kwh", "port_number_16", "baud_rate",
                           "HelpManual_5", "Ver", "OpenPlotFile", "close_harmonics"})
    texts += screen.meter_rec[name].text + "|";
  EXPECT_EQ(texts,
            "W1|VA3|VAR2||2.0 SEC|No Com|VUR (Unbalance)|SEC|Update Now|<- Reset|COM 16|Baud Rate (9600)|"
            "Portuguese|V7.00|&Plot Power Data|close|");
  for (const char* hidden : {"Warning", "hold", "record_button", "Harmo_Graph1", "HScroll1", "CF_value"})
    EXPECT_FALSE(screen.meter_rec[hidden].visible) << hidden;
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
