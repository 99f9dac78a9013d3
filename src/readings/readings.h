// Every reading of the meter as the text the screen, the recording and the converted files show, and the
// values derived on the way (line voltages, apparent and reactive power, power factors, energies, demand).
//
// A member function takes raw readings, writes its text and, where it derives a value, that value; both stay
// until the next call.
// Raw units: voltage 0.1 V; current 0.1 mA x 10^range; powers 0.1 W (VA, VAR) x 10^range; angles tenths of a
// degree.
//
// Over range (-1 from the meter in an input that is checked, or a derived input without a value) writes the
// overload text and clears the derived value. A product of one phase beyond the limit of the scaling ends the
// call: the text stays as it was; a derived value that was found before is new. Powers of the system,
// energies and demands have no such limit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "readings/raw_values.h"

namespace halden {

inline constexpr std::string_view no_demand_text = "------";

struct Readings {
  // `scaling` outlives the readings and is read at every call.
  explicit Readings(const Scaling& scaling) : scaling_(scaling) {}
  explicit Readings(Scaling&&) = delete;

  // ---- one phase ----
  std::string current_text;
  void current(double i);

  std::string voltage_text;
  void voltage(double v);

  // Between two phases, by the law of cosines; all four inputs are checked. Raw in 0.1 V, cut, not rounded.
  std::string line_voltage_text;
  std::optional<std::int32_t> line_voltage_raw = 0;
  void line_voltage(double va, double vb, double angle_a, double angle_b);

  std::string power_text;
  void active_power(double w);

  // Negative when w is; v and i are checked.
  std::string va_text;
  DerivedRaw va_raw = 0;
  void apparent_power(double v, double i, double w);

  // Positive when the voltage leads; va and w are checked.
  std::string var_text;
  DerivedRaw var_raw = 0;
  void reactive_power(DerivedRaw va, DerivedRaw w, double angle_v, double angle_i);

  // pf_raw in thousandths, at most 1000; the text shows whole hundredths.
  std::string pf_text;
  std::optional<std::int32_t> pf_raw = 0;
  void power_factor(DerivedRaw w, DerivedRaw va);

  // Voltage against current in -1800..1800; v and i are checked.
  std::string angle_text;
  DerivedRaw angle_raw = 0;
  void phase_angle(double v, double i, double angle_v, double angle_i);

  // ---- the system: all three inputs are checked, the wiring system decides which are added ----
  std::string system_w_text;
  DerivedRaw system_w_raw = 0;
  void system_active_power(DerivedRaw w1, DerivedRaw w2, DerivedRaw w3);

  std::string system_var_text;
  DerivedRaw system_var_raw = 0;
  void system_reactive_power(DerivedRaw var1, DerivedRaw var2, DerivedRaw var3);

  // From system_w_raw and system_var_raw.
  std::string system_va_text;
  DerivedRaw system_va_raw = 0;
  void system_apparent_power();

  // From system_w_raw and system_va_raw; writes pf_raw too.
  std::string system_pf_text;
  std::optional<std::int32_t> system_pf_raw = 0;
  void system_power_factor();

  // ---- energy: once per sampling instant; t is the sampling time in seconds ----
  // The sums add raw system powers; the texts show sum x t / 3600. Over range adds nothing.
  std::string energy_wh_text;
  double energy_wh = 0;
  void advance_energy_wh(double t);

  std::string energy_varh_text;
  double energy_varh = 0;
  void advance_energy_varh(double t);

  std::string energy_vah_text;
  double energy_vah = 0;
  void advance_energy_vah(double t);

  // From energy_wh and energy_vah; leaves text and value while the system's W or VA is over range.
  std::string energy_pf_text;
  void energy_power_factor();

  // ---- demand: once per sampling instant, count_demand_sample first, logger_reset_md_ad_counter last ----
  // A period is complete after md_period minutes. Over range adds nothing to a sum, but the sample counts.
  std::int32_t demand_samples = 0;
  void count_demand_sample();

  // The highest average of all periods, from 0 on: an average below 0 never shows. After an over range the
  // text shows the kept maximum again as soon as a period completes.
  std::string demand_w_text{no_demand_text};
  std::string max_demand_w_text{no_demand_text};  // of the kept maximum
  double demand_w_sum = 0;
  double max_demand_w = 0;
  void advance_maximum_demand_w(double t);

  std::string demand_va_text{no_demand_text};
  std::string max_demand_va_text{no_demand_text};
  double demand_va_sum = 0;
  double max_demand_va = 0;
  void advance_maximum_demand_va(double t);

  // The average of the last complete period.
  std::string average_w_text;
  double average_w_sum = 0;
  void advance_average_demand_w(double t);

  std::string average_va_text;
  double average_va_sum = 0;
  void advance_average_demand_va(double t);

  // All of them for one sampling instant, in the order the meter's values are read; texts, then the reset.
  void advance_energy_and_demand(double t);

  // At the end of a complete period, live and stored: counter and the four sums to 0. Does nothing while t is
  // 0.
  void logger_reset_md_ad_counter(double t);

  // Energies, their power factor, everything of the demand, and the demand's texts as at the start.
  void reset_energy_and_demand();

 private:
  bool demand_period_complete(double t) const;

  const Scaling& scaling_;
};

}  // namespace halden
