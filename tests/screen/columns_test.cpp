#include "screen/meter_rec/columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "screen/meter_rec/main_window.h"
#include "screen/meter_rec/panels.h"

namespace halden {
namespace {

std::vector<Panel> column_panels() {
  std::vector<Panel> panels = {line_panel(0), line_panel(1), line_panel(2)};
  for (const PhaseQuantity quantity : phase_quantities)
    for (std::size_t phase = 0; phase < phase_count; ++phase) panels.push_back(phase_panel(quantity, phase));
  panels.insert(panels.end(), unbalance_panels().begin(), unbalance_panels().end());
  return panels;
}

// The stems of the panels that are shown.
std::string shown(const Window& window) {
  std::string stems;
  for (const Panel& panel : column_panels()) {
    EXPECT_EQ(window[panel.label].visible, window[panel.value].visible) << panel.value;
    if (window[panel.value].visible) stems += panel.value.substr(0, panel.value.find("_value")) + " ";
  }
  return stems;
}

// Where line voltages, voltages and currents stand, in design pixels.
std::string lefts(const Window& window) {
  std::string places;
  for (const char* stem : {"V12", "V23", "V31", "V1", "V2", "V3", "I1", "I2", "I3"}) {
    const float left = window[std::string(stem) + "_value"].left;
    EXPECT_EQ(window[std::string(stem) + "_label"].left, left) << stem;
    places += std::to_string(std::lround(left / units_per_pixel)) + " ";
  }
  return places;
}

// Items move alone: V1 without V2 and V3, and what a wiring does not name keeps the place an earlier one gave
// it.
TEST(Columns, EachWiringShowsAndMovesItsOwn) {
  const std::string one_phase = "V1 I1 Phase1 ";
  const std::string two_phases = "V1 V2 I1 I2 W1 W2 VA1 VA2 VAR1 VAR2 PF1 PF2 Phase1 Phase2 ";
  const std::string lines = "V12 V23 V31 I1 I2 I3 VUR d0_v d2_v IUR d0_i d2_i ";
  const std::string all =
      "V12 V23 V31 V1 V2 V3 I1 I2 I3 W1 W2 W3 VA1 VA2 VA3 VAR1 VAR2 VAR3 PF1 PF2 PF3 Phase1 Phase2 Phase3 "
      "VUR d0_v d2_v IUR d0_i d2_i ";
  const struct {
    int system;
    std::string shown, lefts;
  } in_turn[] = {
      {0, one_phase, "54 54 54 586 184 184 741 314 314 "},
      {1, two_phases, "54 54 54 184 184 184 314 314 314 "},
      {2, lines, "586 586 586 184 184 184 741 741 741 "},
      {1, two_phases, "586 586 586 184 184 184 314 314 741 "},
      {0, one_phase, "586 586 586 586 184 184 741 314 741 "},
      {3, all, "54 54 54 184 184 184 314 314 314 "},
      {-1, one_phase, "54 54 54 586 184 184 741 314 314 "},
      {4, one_phase, "54 54 54 586 184 184 741 314 314 "},
  };
  Window window = make_main_window();
  const LabelColumns columns = read_label_columns(window);
  for (const auto& turn : in_turn) {
    arrange_for_system(static_cast<Wiring>(turn.system), window, columns);
    EXPECT_EQ(shown(window), turn.shown) << turn.system;
    EXPECT_EQ(lefts(window), turn.lefts) << turn.system;
  }
}

TEST(Columns, AnItemIsAsWideAsTheColumnItStandsInAndComesBack) {
  Window window = make_main_window();
  const Window designed = window;
  const LabelColumns columns = read_label_columns(window);
  arrange_for_system(Wiring::w3p3w, window, columns);
  EXPECT_EQ(window["V12_value"].width, window["VA1_value"].width);
  for (const Wiring system : {Wiring::w1p2w, Wiring::w1p3w, Wiring::w3p4w})
    arrange_for_system(system, window, columns);
  for (const Panel& panel : column_panels()) {
    EXPECT_EQ(window[panel.value].left, designed[panel.value].left) << panel.value;
    EXPECT_EQ(window[panel.value].width, designed[panel.value].width) << panel.value;
  }
}

}  // namespace
}  // namespace halden
