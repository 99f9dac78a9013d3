// The datalogger window Logger. Its captions and the meter's clock are kept up to date; the window is not
// shown yet.
#pragma once

#include "link/meter_status.h"
#include "link/status_query.h"
#include "screen/windows.h"

namespace halden {

class LoggerWindow {
 public:
  // All outlive the window.
  LoggerWindow(Windows& windows, StatusQuery& query, const MeterStatus& status);
  LoggerWindow(const LoggerWindow&) = delete;
  LoggerWindow& operator=(const LoggerWindow&) = delete;

 private:
  void show_clock();

  Window window_;
  const MeterStatus& status_;
};

}  // namespace halden
