#include "screen/captions.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "screen/main_window.h"
#include "screen/menus.h"

namespace halden {
namespace {

const std::map<std::string, std::string> chinese_main = {{"phasor_button", "向量圖"},
                                                         {"get_hz", "讀取設定"},
                                                         {"view_harmonics", "諧波"},
                                                         {"show_wave", "波形"},
                                                         {"loggerPWR", "記錄器"},
                                                         {"Option_Menu", "選項"},
                                                         {"reset_kwh", "<- 歸零"},
                                                         {"zmenu", "檔案"},
                                                         {"record_button", "記錄"},
                                                         {"system_label", "系統"},
                                                         {"Label1_4", "日期"},
                                                         {"Label1_2", "時間"},
                                                         {"Label1_0", "取樣秒數"},
                                                         {"Command3D1", "列印"},
                                                         {"FileName", "建立檔案名稱"},
                                                         {"FileStart", "開始記錄"},
                                                         {"auto_record", "自動"},
                                                         {"manual_record", "手動"},
                                                         {"FileStop", "停止記錄"},
                                                         {"ViewFile", "瀏灠檔案"},
                                                         {"OpenPlotFile", "電力記錄畫圖"},
                                                         {"show_plot_harmonics", "諧波記錄畫圖"},
                                                         {"show_plot_waveform", "波形記錄畫圖"},
                                                         {"show_plot_hardcopy", "視窗記錄畫圖"}};

const std::map<std::string, std::string> chinese_logger = {
    {"Label2", "讀取記錄器設定"}, {"Panel3D2", "記錄器設定"},       {"Command1", "清除所有記錄"},
    {"Command2", "下載諧波記錄"}, {"Command3", "下載驟升驟降記錄"}, {"Read_All", "下載電力記錄"},
    {"DL_HC", "下載視窗記錄"},    {"DL_All", "下載所有檔案"}};

std::map<std::string, std::string> texts(const Window& window) {
  std::map<std::string, std::string> all;
  for (const auto& [name, control] : window.controls()) all[name] = control.text;
  return all;
}

TEST(Captions, ChineseIsShownAndEveryEnglishCaptionComesBack) {
  Screen screen;
  const auto designed_main = texts(screen.meter_rec);
  const auto designed_logger = texts(screen.logger);
  apply_captions(1, screen);
  for (const auto& [name, caption] : chinese_main) EXPECT_EQ(screen.meter_rec[name].text, caption) << name;
  for (const auto& [name, caption] : chinese_logger) EXPECT_EQ(screen.logger[name].text, caption) << name;
  apply_captions(0, screen);
  EXPECT_EQ(texts(screen.meter_rec), designed_main);
  EXPECT_EQ(texts(screen.logger), designed_logger);
}

TEST(Captions, AnyOtherLanguageIsEnglish) {
  Screen screen;
  apply_captions(1, screen);
  apply_captions(7, screen);
  EXPECT_EQ(screen.meter_rec["OpenPlotFile"].text, "&Plot Power Data");
  EXPECT_EQ(screen.logger["Command3"].text, "Down Load Transient");
}

TEST(Captions, ControlsStartWithTheirDesignedTexts) {
  const Screen screen;
  const std::map<std::string, std::string> expected = {{"VAR2_value", ""},
                                                       {"Q2_label", "VAR2"},
                                                       {"S3_label", "VA3"},
                                                       {"P1_label", "W1"},
                                                       {"Phase3_label", "Phase 3"},
                                                       {"PF2_label", "PF2"},
                                                       {"V31_label", "V31"},
                                                       {"Label1_1", "2.0 SEC"},
                                                       {"Warning", "No Com"},
                                                       {"VUR_label", "VUR (Unbalance)"},
                                                       {"set_sec", "SEC"},
                                                       {"get_hz", "Update Now"},
                                                       {"reset_kwh", "<- Reset"},
                                                       {"port_number_16", "COM 16"},
                                                       {"baud_rate", "Baud Rate (9600)"},
                                                       {"HelpManual_5", "Portuguese"},
                                                       {"Ver", "V7.00"},
                                                       {"close_harmonics", "close"}};
  for (const auto& [name, text] : expected) EXPECT_EQ(screen.meter_rec[name].text, text) << name;
  for (const std::string hidden :
       {"Warning", "hold", "record_button", "Harmo_Graph1", "HScroll1", "CF_value"})
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
