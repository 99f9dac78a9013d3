#include "live/power/power_view.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "formats/power_file.h"
#include "live/setting_texts.h"

namespace halden {

namespace {

// In the order of PowerQuantity. P, S and Q are the file's names of W, VA and VAR.
constexpr std::array<std::string_view, power_quantity_count> panels = {
    "V12_value",      "V23_value",     "V31_value",     "V1_value",     "V2_value",     "V3_value",
    "I1_value",       "I2_value",      "I3_value",      "W1_value",     "W2_value",     "W3_value",
    "VA1_value",      "VA2_value",     "VA3_value",     "VAR1_value",   "VAR2_value",   "VAR3_value",
    "PF1_value",      "PF2_value",     "PF3_value",     "Phase1_value", "Phase2_value", "Phase3_value",
    "W_sys_value",    "VA_sys_value",  "VAR_sys_value", "PF_sys_value", "WH_sys_value", "VAH_sys_value",
    "VARH_sys_value", "PFH_sys_value", "W_AD_value",    "VA_AD_value",  "W_MD_value",   "VA_MD_value"};

PowerTexts shown_texts(const Window& meter_rec) {
  PowerTexts texts;
  for (std::size_t quantity = 0; quantity < panels.size(); ++quantity)
    texts[quantity] = meter_rec[panels[quantity]].text;
  return texts;
}

}  // namespace

FrameOutcome PowerView::take_frame() {
  const PowerFrame frame = monitor_.handle_frame();
  if (frame == PowerFrame::of_harmonics || frame == PowerFrame::harmonics_arriving) {
    other_mode_ = true;
    return frame == PowerFrame::of_harmonics ? FrameOutcome::other_mode : FrameOutcome::other_mode_arriving;
  }
  if (frame != PowerFrame::incomplete || monitor_.other_phase_count() != 0) other_mode_ = false;
  if (frame == PowerFrame::complete) listener_.power_frame_shown();
  const bool lost = state_.link_lost == 1 || other_mode_;
  if (frame == PowerFrame::complete || !lost) follow_sampling_instant();
  if (frame == PowerFrame::complete) return FrameOutcome::complete;
  return frame == PowerFrame::damaged ? FrameOutcome::damaged : FrameOutcome::incomplete;
}

// Once per sampling instant, with the last system values.
void PowerView::follow_sampling_instant() {
  if (sample_clock_.sampling_instant() == energy_instant_) return;
  energy_instant_ = sample_clock_.sampling_instant();
  advance_energy_and_demand();
}

void PowerView::advance_energy_and_demand() {
  Readings& readings = chain_.readings;
  readings.advance_energy_and_demand(sample_clock_.sample_time_s());
  window_.set_text("WH_sys_value", readings.energy_wh_text);
  window_.set_text("VARH_sys_value", readings.energy_varh_text);
  window_.set_text("VAH_sys_value", readings.energy_vah_text);
  window_.set_text("PFH_sys_value", readings.energy_pf_text);
  window_.set_text("W_MD_value", readings.demand_w_text);
  window_.set_text("VA_MD_value", readings.demand_va_text);
  window_.set_text("W_AD_value", readings.average_w_text);
  window_.set_text("VA_AD_value", readings.average_va_text);
}

void PowerView::reset_kwh() {
  Readings& readings = chain_.readings;
  readings.reset_energy_and_demand();
  window_.set_text("WH_sys_value", "0.0");
  window_.set_text("VAH_sys_value", "0.0 ");  // the blank belongs to the text
  window_.set_text("VARH_sys_value", "0.0");
  window_.set_text("PFH_sys_value", "0.00");
  window_.set_text("W_MD_value", readings.demand_w_text);
  window_.set_text("VA_MD_value", readings.demand_va_text);
  window_.set_text("W_AD_value", "");
  window_.set_text("VA_AD_value", "");
}

void PowerView::write_header() {
  std::string columns = power_column_line(status_.wiring_system);
  if (!columns.empty()) header_line_ = std::move(columns);
}

std::string PowerView::header() {
  write_header();
  return header_lines(power_settings_line(status_.wiring_system, setting_texts(window_)), header_line_);
}

RecordLine PowerView::record() const {
  return power_record(status_.wiring_system, record_date(sample_clock_.instant_date()),
                      sample_clock_.sampling_instant(), shown_texts(window_));
}

}  // namespace halden
