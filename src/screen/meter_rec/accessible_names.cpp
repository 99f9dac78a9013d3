#include "screen/meter_rec/accessible_names.h"

#include <array>
#include <vector>

#include "screen/meter_rec/settings.h"

namespace halden {

namespace {

struct ButtonAndBox {
  Text button;
  Text box;
};

// In the order of Setting.
constexpr std::array<ButtonAndBox, meter_settings.size()> of_settings = {
    {{{"Send CT", "傳送 CT"}, {"CT, ratio of the current transformers", "CT，比流器變比"}},
     {{"Send PT", "傳送 PT"}, {"PT, ratio of the voltage transformers", "PT，比壓器變比"}},
     {{"Send MD", "傳送 MD"}, {"MD, demand period in minutes", "MD，需量週期（分鐘）"}},
     {{"Send SEC", "傳送 SEC"}, {"SEC, sampling time of the datalogger in seconds", "SEC，記錄器的取樣秒數"}},
     {{"Send HZ", "傳送 HZ"}, {"HZ, frequency of the mains", "HZ，電源頻率"}}}};

constexpr std::array of_others = {Caption{"PQA_mode", {"Mode of the meter", "電表模式"}},
                                  Caption{"HScroll1", {"Order of the harmonic", "諧波次數"}},
                                  Caption{"Harmo_Graph1", {"Chart", "圖表"}}};

std::vector<Caption> make_names() {
  std::vector<Caption> names(of_others.begin(), of_others.end());
  for (const SettingNames& setting : meter_settings) {
    const ButtonAndBox& texts = of_settings[static_cast<std::size_t>(setting.setting)];
    names.push_back({setting.button, texts.button});
    names.push_back({setting.box, texts.box});
  }
  return names;
}

}  // namespace

std::span<const Caption> main_window_accessible_names() {
  static const std::vector<Caption> names = make_names();
  return names;
}

}  // namespace halden
