#include "live/wave_summary.h"

#include <array>
#include <string_view>
#include <utility>

#include "screen/meter_rec/panels.h"

namespace halden {

void WaveSummary::show(const WaveFields& fields) {
  update_wave_texts(scaling_, fields, texts_);
  const std::array<std::pair<std::string_view, std::string_view>, 8> panels = {
      {{"RMS_value", texts_.rms},
       {"PEAK_P_value", texts_.peak_plus},
       {"PEAK_N_value", texts_.peak_minus},
       {"CF_value", texts_.crest_factor},
       {"THD_F_value", texts_.thd},
       {"VI_of_1_value", texts_.fundamental},
       {"DATE_wave_value", sample_clock_.instant_date_text()},
       {"TIME_wave_value", sample_clock_.sampling_instant()}}};
  for (const auto& [name, text] : panels) window_.set_text(name, text);
  for (const Panel& panel : wave_summary_panels()) {
    window_.set_visible(panel.label, true);
    window_.set_visible(panel.value, true);
  }
}

void WaveSummary::clear() {
  texts_ = {};
  for (const Panel& panel : wave_summary_panels()) window_.set_text(panel.value, "");
}

}  // namespace halden
