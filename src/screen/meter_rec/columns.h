// The places of the columns of the main window, and which of them a wiring system shows.
#pragma once

#include <array>
#include <span>
#include <string>

#include "readings/wiring.h"
#include "screen/window.h"

namespace halden {

struct DesignColumn {
  int left;   // design pixels
  int width;  // design pixels
};

// Line voltage, V, I, W, VA, VAR, PF, phase angle.
std::span<const DesignColumn, 8> design_columns();

// The designer left positions of the headers V12_label, V1_label, I1_label, S1_label and Q1_label (P1 to P5),
// in 1/1440 inch. Read once at start-up, before anything is re-arranged; columns move to these places.
using LabelColumns = std::array<float, 5>;

LabelColumns read_label_columns(const Window& meter_rec);

// Shows, hides and moves the columns for a wiring system; an unknown one is arranged as 1P2W. An item that
// moves takes the left position, and the width, of the column it moves to; all others keep their place.
void arrange_for_system(Wiring system, Window& meter_rec, const LabelColumns& label_column_left);

// Where a control is shown. The visible columns of the phase panels share the whole width of the grid in
// proportion to their own widths, so that no wiring system leaves a hole; all other controls are shown at
// their own place.
Place place_on_screen(const Window& meter_rec, const std::string& control);

}  // namespace halden
