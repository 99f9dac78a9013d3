// The power factor of a phase, of the system, and over time.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"
#include "readings/readings.h"

namespace halden {

namespace {

// One blank more than overload_text, because this panel is wider.
constexpr std::string_view system_pf_overload_text = "   OL ";

// 10005 instead of 10000 raises the ratio by up to half a thousandth before it is cut to thousandths.
constexpr double ratio_scale = 10005.0;
constexpr std::int64_t unity = 1000;

// W / VA in thousandths; 0 without any VA, at most 1000. Nothing when it does not fit, which only happens
// with a VA left over from an earlier call.
std::optional<std::int32_t> ratio_in_thousandths(double w, double va) {
  if (va == 0.0) return 0;
  return to_int32(static_cast<double>(std::min(integer_quotient(ratio_scale * w / va, 10.0), unity)));
}

// Cut to hundredths, not rounded: 0.999 shows as 0.99.
double hundredths(std::int32_t thousandths) { return (thousandths / 10) / 100.0; }

}  // namespace

void Readings::power_factor(DerivedRaw w, DerivedRaw va) {
  if (!va || !w) {
    pf_text = overload_text;
    pf_raw.reset();
    return;
  }
  const auto ratio = ratio_in_thousandths(*w, *va);
  if (!ratio) return;
  pf_raw = ratio;
  pf_text = format_pattern(hundredths(*ratio), "0.00");
}

void Readings::system_power_factor() {
  if (!system_w_raw || !system_va_raw) {
    system_pf_text = system_pf_overload_text;
    pf_raw.reset();
    system_pf_raw.reset();
    return;
  }
  const auto ratio = ratio_in_thousandths(*system_w_raw, *system_va_raw);
  if (!ratio) return;
  pf_raw = system_pf_raw = ratio;
  system_pf_text = format_pattern(hundredths(*ratio), "0.00");
}

void Readings::energy_power_factor() {
  if (!system_w_raw || !system_va_raw) return;
  const auto ratio = ratio_in_thousandths(energy_wh, energy_vah);
  if (!ratio) return;
  energy_pf_text = format_pattern(hundredths(*ratio), "0.00H");
}

}  // namespace halden
