#include "logger/logger_form.h"

#include <string>
#include <utility>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::array recorded = {
    LoggerPanel{"SYS_REC", "SYS_REC_value"}, LoggerPanel{"HZ_REC", "HZ_REC_value"},
    LoggerPanel{"CT_REC", "CT_REC_value"},   LoggerPanel{"PT_REC", "PT_REC_value"},
    LoggerPanel{"SEC_REC", "SEC_REC_value"}, LoggerPanel{"MD_REC", "MD_REC_value"}};

constexpr std::array selected = {LoggerPanel{"data_type_label", "Harmo_or_Power_0"},
                                 LoggerPanel{"file_index_label", "Harmo_or_Power_1"}};

constexpr std::array boxes = {LoggerPanel{"start_date_label", "Text1_1"},
                              LoggerPanel{"start_time_label", "Text1_2"}};

constexpr std::array transfer = {
    LoggerPanel{"received_label", "received_value"}, LoggerPanel{"rate_label", "rate_value"},
    LoggerPanel{"elapsed_label", "elapsed_value"}, LoggerPanel{"records_label", "records_value"}};

constexpr std::array<std::string_view, 6> buttons = {"Read_All", "Command2", "Command3",
                                                     "DL_HC",    "DL_All",   "Command1"};

// The same in both languages.
constexpr std::array fixed_captions = {
    std::pair{"SYS_REC", "SYSTEM (REC)"},
    std::pair{"HZ_REC", "HZ (REC)"},
    std::pair{"CT_REC", "CT (REC)"},
    std::pair{"PT_REC", "PT (REC)"},
    std::pair{"SEC_REC", "SEC (REC)"},
    std::pair{"MD_REC", "MD (REC)"},
    std::pair{"data_type_label", "Type of Data"},
    std::pair{"file_index_label", "File Index"},
    std::pair{"start_date_label", "   Date    (YYYY-MM-DD)  "},
    std::pair{"start_time_label", "    Time          (HH:MM:SS)"},
};

constexpr std::array captions = {
    Caption{"Label2", {"Press to get datalogger setup", "讀取記錄器設定"}},
    Caption{"Panel3D2", {"DATALOGGER SETUP", "記錄器設定"}},
    Caption{"Command1", {"Clear Memory", "清除所有記錄"}},
    Caption{"Command2", {"Down Load Harmonics", "下載諧波記錄"}},
    Caption{"Command3", {"Down Load Transient", "下載驟升驟降記錄"}},
    Caption{"Read_All", {"Down Load Power Data", "下載電力記錄"}},
    Caption{"DL_HC", {"Down Load Hardcopy", "下載視窗記錄"}},
    Caption{"DL_All", {"Down Load All Files", "下載所有檔案"}},
    Caption{"total_files_label", {"Total Files", "檔案總數"}},
    Caption{"dl_label", {"Down Loading", "下載中"}},
    Caption{"received_label", {"received", "已接收"}},
    Caption{"rate_label", {"rate", "速率"}},
    Caption{"elapsed_label", {"elapsed", "經過時間"}},
    Caption{"records_label", {"records", "筆數"}},
    Caption{transfer_cancel, {"Cancel", "取消"}},
    Caption{transfer_note,
            {"Cancel keeps what has arrived and converts it.", "取消後，已接收的資料仍會轉換。"}},
    Caption{download_title, {"Down load", "下載"}},
    Caption{results_title, {"Done in this session", "本次完成"}},
    Caption{open_folder, {"Open Folder", "開啟資料夾"}},
    Caption{polling_note, polling_note_text},
};

constexpr std::array accessible_names = {
    Caption{"Text1_1", {"Start date of the records, year-month-day", "記錄開始日期，年-月-日"}},
    Caption{"Text1_2", {"Start time of the records, hours:minutes:seconds", "記錄開始時間，時:分:秒"}},
    Caption{results, {"Files of this session", "本次檔案"}},
    Caption{transfer_progress, {"Progress", "進度"}},
};

void add_panels(Window& window, std::span<const LoggerPanel> panels, bool visible) {
  for (const LoggerPanel& panel : panels)
    for (const std::string_view name : {panel.label, panel.value}) {
      window.add(std::string(name), {});
      window.set_visible(name, visible);
    }
}

}  // namespace

std::span<const LoggerPanel> recorded_panels() { return recorded; }
std::span<const LoggerPanel> selected_panels() { return selected; }
std::span<const LoggerPanel> start_boxes() { return boxes; }
std::span<const LoggerPanel> transfer_panels() { return transfer; }
std::span<const std::string_view> logger_buttons() { return buttons; }

Window make_logger_window() {
  Window window("Logger");
  window.set_caption("Datalogger");
  for (const auto panels : {recorded_panels(), selected_panels(), start_boxes()})
    add_panels(window, panels, true);
  add_panels(window, transfer_panels(), false);
  for (const LoggerPanel& panel : {download_name, total_files}) add_panels(window, {&panel, 1}, false);
  for (const std::string_view name : logger_buttons()) window.add(std::string(name), {});
  for (const std::string_view name : {setup_title, read_status_caption, read_status_button, stored_files,
                                      download_title, polling_note, std::string_view(status_hint)})
    window.add(std::string(name), {});
  for (const std::string_view name : {transfer_task, transfer_progress, file_of_total, transfer_note,
                                      transfer_cancel, results_title, results, open_folder}) {
    window.add(std::string(name), {});
    window.set_visible(name, false);
  }
  window.set_text(read_status_button, "i");
  for (const auto& [name, text] : fixed_captions) window.set_text(name, text);
  window.set_captions(captions);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace halden
