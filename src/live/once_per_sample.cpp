#include "live/once_per_sample.h"

namespace halden {

void advance_energy_and_demand(Readings& readings, double sample_time_s, Window& meter_rec) {
  readings.advance_energy_wh(sample_time_s);
  meter_rec["WH_sys_value"].text = readings.energy_wh_text;
  readings.advance_energy_varh(sample_time_s);
  meter_rec["VARH_sys_value"].text = readings.energy_varh_text;
  readings.advance_energy_vah(sample_time_s);
  meter_rec["VAH_sys_value"].text = readings.energy_vah_text;
  readings.energy_power_factor();
  meter_rec["PFH_sys_value"].text = readings.energy_pf_text;
  readings.count_demand_sample();
  readings.advance_maximum_demand_w(sample_time_s);
  meter_rec["W_MD_value"].text = readings.demand_w_text;
  readings.advance_maximum_demand_va(sample_time_s);
  meter_rec["VA_MD_value"].text = readings.demand_va_text;
  readings.advance_average_demand_w(sample_time_s);
  meter_rec["W_AD_value"].text = readings.average_w_text;
  readings.advance_average_demand_va(sample_time_s);
  meter_rec["VA_AD_value"].text = readings.average_va_text;
  readings.reset_demand_period(sample_time_s);
}

void reset_energy_and_demand(Readings& readings, Window& meter_rec) {
  readings.reset_energy_and_demand();
  meter_rec["WH_sys_value"].text = "0.0";
  meter_rec["VAH_sys_value"].text = "0.0 ";  // the blank belongs to the text
  meter_rec["VARH_sys_value"].text = "0.0";
  meter_rec["PFH_sys_value"].text = "0.00";
  meter_rec["W_MD_value"].text = readings.demand_w_text;
  meter_rec["VA_MD_value"].text = readings.demand_va_text;
  meter_rec["W_AD_value"].text.clear();
  meter_rec["VA_AD_value"].text.clear();
}

}  // namespace halden
