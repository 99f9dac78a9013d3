#include "screen/captions.h"

#include <array>
#include <string>
#include <string_view>

#include "screen/main_window.h"

namespace halden {

namespace {

struct Caption {
  std::string_view control;
  std::string_view english;
  std::string_view chinese;
};

constexpr std::array main_captions = {
    Caption{"phasor_button", "PHASOR", "向量圖"},
    Caption{"get_hz", "Update Now", "讀取設定"},
    Caption{"view_harmonics", "Harmonics", "諧波"},
    Caption{"show_wave", "Waveform", "波形"},
    Caption{"loggerPWR", "Datalogger", "記錄器"},
    Caption{"Option_Menu", "Option", "選項"},
    Caption{"reset_kwh", "<- Reset", "<- 歸零"},
    Caption{"zmenu", "File", "檔案"},
    Caption{"record_button", "Record", "記錄"},
    Caption{"system_label", "System", "系統"},
    Caption{"Label1_4", "Date", "日期"},
    Caption{"Label1_2", "Time", "時間"},
    Caption{"Label1_0", "Sample", "取樣秒數"},
    Caption{"Command3D1", "Print", "列印"},
    Caption{"FileName", "&Create Data File", "建立檔案名稱"},
    Caption{"FileStart", "&Start Recording", "開始記錄"},
    Caption{"auto_record", "Auto", "自動"},
    Caption{"manual_record", "Manually", "手動"},
    Caption{"FileStop", "&End Recording", "停止記錄"},
    Caption{"ViewFile", "&View File", "瀏灠檔案"},
    Caption{"OpenPlotFile", "&Plot Power Data", "電力記錄畫圖"},
    Caption{"show_plot_harmonics", "Plot &Harmonics", "諧波記錄畫圖"},
    Caption{"show_plot_waveform", "Plot &Waveform", "波形記錄畫圖"},
    Caption{"show_plot_hardcopy", "Plot &Hardcopy", "視窗記錄畫圖"},
    // Our own headings beside the table of captions.
    Caption{"settings_heading", "Meter settings", "電表設定"},
    Caption{"energy_heading", "Energy and demand", "電能與需量"},
};

constexpr std::array logger_captions = {
    Caption{"Label2", "Press to get datalogger setup", "讀取記錄器設定"},
    Caption{"Panel3D2", "DATALOGGER SETUP", "記錄器設定"},
    Caption{"Command1", "Clear Memory", "清除所有記錄"},
    Caption{"Command2", "Down Load Harmonics", "下載諧波記錄"},
    Caption{"Command3", "Down Load Transient", "下載驟升驟降記錄"},
    Caption{"Read_All", "Down Load Power Data", "下載電力記錄"},
    Caption{"DL_HC", "Down Load Hardcopy", "下載視窗記錄"},
    Caption{"DL_All", "Down Load All Files", "下載所有檔案"},
};

template <typename Table>
void apply(const Table& table, std::int16_t language, Window& window) {
  for (const Caption& caption : table)
    window[caption.control].text = language == chinese ? caption.chinese : caption.english;
}

}  // namespace

void apply_captions(std::int16_t language, Screen& screen) {
  apply(main_captions, language, screen.meter_rec);
  apply(logger_captions, language, screen.logger);
}

}  // namespace halden
