// The settings panel of the main window: reading the meter's settings anew, and clearing what was
// accumulated.
#pragma once

#include "link/meter_status.h"
#include "link/polling.h"
#include "link/status_query.h"
#include "readings/readings.h"
#include "screen/columns.h"
#include "screen/main_window.h"

namespace halden {

class SettingsPanel {
 public:
  SettingsPanel(Polling& polling, StatusQuery& query, const MeterStatus& status, Readings& readings,
                Window& meter_rec, const LabelColumns& label_column_left)
      : polling_(polling),
        query_(query),
        status_(status),
        readings_(readings),
        window_(meter_rec),
        label_column_left_(label_column_left) {}

  // "Update Now": reads the status, lays the columns out for the wiring system, and starts energies and
  // demands anew.
  void get_hz();

  // "<- Reset"
  void reset_kwh();

 private:
  Polling& polling_;
  StatusQuery& query_;
  const MeterStatus& status_;
  Readings& readings_;
  Window& window_;
  const LabelColumns& label_column_left_;
};

}  // namespace halden
