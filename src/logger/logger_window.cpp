#include "logger/logger_window.h"

#include "logger/logger_form.h"

namespace halden {

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
