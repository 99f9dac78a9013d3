// The design of the main window MeterRec: every control with its English caption, its place and its kind.
//
// The content area below the menu bar is designed 1280 x 736 pixels of 1/96 inch (15 units of 1/1440 inch
// each) and scales with the window. Columns from left to right: line voltage, V, I, W, VA, VAR, PF, phase
// angle; one row per phase; below them the system values, energies, demands and the unbalance figures; meter
// settings on the right.
#pragma once

#include <span>
#include <string>

#include "screen/window.h"

namespace halden {

inline constexpr float design_width = 1280 * units_per_pixel;
inline constexpr float design_height = 736 * units_per_pixel;
inline constexpr float panels_right = 1130;  // design pixels; the settings begin to the right

enum class ControlKind {
  text,      // a quiet label
  reading,   // a larger text in the strip above the panels
  label,     // the caption inside a value panel
  value,     // the value inside a value panel
  edit_box,  // a field the user types in
  button,
  scroll_bar,
  chart,
  status,     // a field of the status line
  menu_item,  // placed by the menu tree
};

struct DesignedControl {
  std::string name;
  ControlKind kind;
  int phase = -1;      // 0..2 in the row of a phase; all but line voltages have its colour
  std::string widest;  // the widest text a value is expected to show, for choosing its size
  std::string label;   // of a value: the control that names it
};

// All controls of MeterRec in the order they are designed.
std::span<const DesignedControl> main_window_design();

// MeterRec before anything was read from the meter. Controls of a label/value panel share one
// frame: the position and size of both are those of the panel.
Window make_main_window();

}  // namespace halden
