#include "live/settings_panel.h"

#include "live/once_per_sample.h"

namespace halden {

void SettingsPanel::get_hz() {
  polling_.stop_polling();
  query_.query_meter_status();
  arrange_for_system(status_.wiring_system, window_, label_column_left_);
  polling_.resume_polling(1);
  reset_kwh();
}

void SettingsPanel::reset_kwh() { reset_energy_and_demand(readings_, window_); }

}  // namespace halden
