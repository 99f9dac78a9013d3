#include "screen/meter_rec/panels.h"

#include <array>

namespace halden {

namespace {

struct Stem {
  std::string_view value;
  std::string_view label;
  std::string_view caption;
};

// In the order of PhaseQuantity. The labels of the power columns carry the symbols P, S and Q.
constexpr std::array<Stem, 7> stems = {{{"V", "V", "V"},
                                        {"I", "I", "I"},
                                        {"W", "P", "W"},
                                        {"VA", "S", "VA"},
                                        {"VAR", "Q", "VAR"},
                                        {"PF", "PF", "PF"},
                                        {"Phase", "Phase", "Phase "}}};

using PhasePanels = std::array<std::array<Panel, phase_count>, stems.size()>;

PhasePanels make_phase_panels() {
  PhasePanels panels;
  for (std::size_t quantity = 0; quantity < stems.size(); ++quantity) {
    for (std::size_t phase = 0; phase < phase_count; ++phase) {
      const std::string digit = std::to_string(phase + 1);
      const Stem& stem = stems[quantity];
      panels[quantity][phase] = {std::string(stem.value) + digit + "_value",
                                 std::string(stem.label) + digit + "_label",
                                 std::string(stem.caption) + digit};
    }
  }
  return panels;
}

Panel named(std::string_view stem, std::string_view caption) {
  return {std::string(stem) + "_value", std::string(stem) + "_label", std::string(caption)};
}

}  // namespace

const Panel& phase_panel(PhaseQuantity quantity, std::size_t phase) {
  static const PhasePanels panels = make_phase_panels();
  return panels[static_cast<std::size_t>(quantity)][phase];
}

const Panel& line_panel(std::size_t index) {
  static const std::array<Panel, 3> panels = {named("V12", "V12"), named("V23", "V23"), named("V31", "V31")};
  return panels[index];
}

std::span<const Panel> system_panels() {
  static const std::array<Panel, 12> panels = {
      named("W_sys", "W (SYS)"),       named("VA_sys", "VA (SYS)"),   named("VAR_sys", "VAR (SYS)"),
      named("PF_sys", "PF (SYS)"),     named("WH_sys", "WH (SYS)"),   named("VAH_sys", "VAH (SYS)"),
      named("VARH_sys", "VARH (SYS)"), named("PFH_sys", "PFH (SYS)"), named("W_AD", "W (AD)"),
      named("VA_AD", "VA (AD)"),       named("W_MD", "W (MD)"),       named("VA_MD", "VA (MD)")};
  return panels;
}

std::span<const Panel> unbalance_panels() {
  static const std::array<Panel, 6> panels = {
      named("VUR", "VUR (Unbalance)"), named("d0_v", "d0% (V, ZERO)"), named("d2_v", "d2% (V, NEG.)"),
      named("IUR", "IUR (Unbalance)"), named("d0_i", "d0% (I, ZERO)"), named("d2_i", "d2% (I, NEG.)")};
  return panels;
}

std::span<const Panel> harmonic_cursor_panels() {
  static const std::array<Panel, 4> panels = {named("har_index", "Index"), named("har_percent", "%"),
                                              named("har_angle", "Angle"), named("har_hz", "Hz")};
  return panels;
}

std::span<const Panel> wave_summary_panels() {
  static const std::array<Panel, 8> panels = {{{"RMS_value", "RMS", "RMS"},
                                               {"PEAK_P_value", "PEAK_P", "PEAK+"},
                                               {"PEAK_N_value", "PEAK_N", "PEAK-"},
                                               {"CF_value", "CF_label", "C.F."},
                                               {"THD_F_value", "THD_F", "THD-F"},
                                               {"VI_of_1_value", "VI_1", "VI(1)"},
                                               {"DATE_wave_value", "DATE_wave", "DATE"},
                                               {"TIME_wave_value", "TIME_wave", "TIME"}}};
  return panels;
}

}  // namespace halden
