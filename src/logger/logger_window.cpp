#include "logger/logger_window.h"

#include <array>
#include <string>

namespace halden {

namespace {

constexpr std::array captions = {
    Caption{"Label2", {"Press to get datalogger setup", "讀取記錄器設定"}},
    Caption{"Panel3D2", {"DATALOGGER SETUP", "記錄器設定"}},
    Caption{"Command1", {"Clear Memory", "清除所有記錄"}},
    Caption{"Command2", {"Down Load Harmonics", "下載諧波記錄"}},
    Caption{"Command3", {"Down Load Transient", "下載驟升驟降記錄"}},
    Caption{"Read_All", {"Down Load Power Data", "下載電力記錄"}},
    Caption{"DL_HC", {"Down Load Hardcopy", "下載視窗記錄"}},
    Caption{"DL_All", {"Down Load All Files", "下載所有檔案"}},
};

Window make_logger_window() {
  Window window("Logger");
  window.set_caption("Datalogger");
  for (const Caption& caption : captions) window.add(std::string(caption.control), {});
  for (const char* clock_field : {"Text1_1", "Text1_2"}) window.add(clock_field, {});
  window.set_captions(captions);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace

LoggerWindow::LoggerWindow(Windows& windows, StatusQuery& query, const MeterStatus& status)
    : window_(make_logger_window()), status_(status) {
  windows.add(window_);
  query.on_status_read([this] { show_clock(); });
}

void LoggerWindow::show_clock() {
  window_.set_text("Text1_1", status_.meter_year + "-" + status_.meter_month + "-" + status_.meter_day);
  window_.set_text("Text1_2", status_.meter_hour + ":" + status_.meter_minute + ":" + status_.meter_second);
}

}  // namespace halden
