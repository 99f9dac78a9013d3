// The settings panel of the main window: sending a setting to the meter, reading the meter's settings anew,
// and clearing what was accumulated.
//
// A setting goes out as a letter, the characters of the new value and a carriage return, slowly, because the
// meter takes them one at a time:
//
//   0 s "C"   2.0 s "1"   2.5 s "0"   3.0 s "0"   3.7 s CR   3.9 s the status is asked for
//
// The meter acknowledges nothing; the status read afterwards shows what it holds now.
#pragma once

#include <functional>
#include <string>

#include "link/meter_status.h"
#include "link/polling.h"
#include "link/status_query.h"
#include "link/waits.h"
#include "platform/platform.h"
#include "readings/readings.h"
#include "screen/columns.h"
#include "screen/main_window.h"

namespace halden {

struct Setting;

class SettingsPanel {
 public:
  SettingsPanel(const Platform& platform, Waits& waits, Polling& polling, StatusQuery& query,
                const MeterStatus& status, Readings& readings, Window& meter_rec,
                const LabelColumns& label_column_left)
      : platform_(platform),
        waits_(waits),
        polling_(polling),
        query_(query),
        status_(status),
        readings_(readings),
        window_(meter_rec),
        label_column_left_(label_column_left) {}

  // Send what stands in the box: CT ratio, PT ratio, demand period in minutes, sampling interval in seconds
  // (even numbers only), frequency (50, 60, anything else automatic). Energies and demands start anew.
  void set_ct();
  void set_pt();
  void set_md();
  void set_sec();
  void set_hz();

  // Called when a setting is about to go out, not when it is refused.
  std::function<void()> on_sending = [] {};

  // "Update Now": reads the status, lays the columns out for the wiring system, and starts energies and
  // demands anew.
  void get_hz();

  // "<- Reset"
  void reset_kwh();

 private:
  void send(const Setting& setting);
  void send_value(const Setting& setting, const std::string& text);

  Platform platform_;
  Waits& waits_;
  Polling& polling_;
  StatusQuery& query_;
  const MeterStatus& status_;
  Readings& readings_;
  Window& window_;
  const LabelColumns& label_column_left_;
};

}  // namespace halden
