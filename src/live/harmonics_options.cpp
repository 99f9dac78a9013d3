#include "live/harmonics_options.h"

#include <algorithm>

namespace halden {

void show_options(const HarmonicsOptions& options, int order, Window& meter_rec) {
  const bool percent = options.harmonic_option == 0;
  const bool all = options.harmonic_count == all_orders;
  meter_rec.set_checked("chart_percent", percent);
  meter_rec.set_checked("chart_angle", !percent);
  meter_rec.set_checked("chart_50", !all);
  meter_rec.set_checked("chart_99", all);
  meter_rec.set_checked("chart_without_largest", options.without_largest);
  meter_rec.set_range("HScroll1", 1, options.harmonic_count);
  meter_rec.set_value("HScroll1", std::clamp<int>(order, 1, options.harmonic_count));
}

}  // namespace halden
