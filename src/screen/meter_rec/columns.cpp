#include "screen/meter_rec/columns.h"

#include <string>
#include <string_view>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::array<DesignColumn, 8> columns = {
    {{54, 122}, {184, 122}, {314, 121}, {443, 135}, {586, 147}, {741, 165}, {914, 92}, {1014, 98}}};

constexpr std::array<std::string_view, 5> anchor_headers = {"V12_label", "V1_label", "I1_label", "S1_label",
                                                            "Q1_label"};

constexpr int stay = -1;

// What a wiring system shows: how many phases of each quantity, and the P column (0-based) some items move
// to.
struct Arrangement {
  std::size_t voltages;
  std::size_t currents;
  std::size_t powers;  // W, VA, VAR, PF
  std::size_t angles;
  std::size_t lines;  // V12, V23, V31 and the unbalance figures
  int voltage_column;
  std::size_t moved_voltages;
  int current_column;
  int line_column;
};

constexpr std::array<Arrangement, 4> arrangements = {{
    {1, 1, 0, 1, 0, 3, 1, 4, stay},  // 1P2W
    {2, 2, 2, 2, 0, 1, 1, 2, stay},  // 1P3W
    {0, 3, 0, 0, 3, stay, 0, 4, 3},  // 3P3W
    {3, 3, 3, 3, 3, 1, 1, 2, 0},     // 3P4W
}};

float width_of_column_at(float left) {
  for (const DesignColumn& column : columns)
    if (static_cast<float>(column.left) * units_per_pixel == left)
      return static_cast<float>(column.width) * units_per_pixel;
  return 0;
}

class Arranger {
 public:
  Arranger(Window& window, const LabelColumns& lefts) : window_(window), lefts_(lefts) {}

  void show(const Panel& panel, bool visible) {
    window_.set_visible(panel.label, visible);
    window_.set_visible(panel.value, visible);
  }

  void move(const Panel& panel, int column) {
    if (column == stay) return;
    const float left = lefts_[static_cast<std::size_t>(column)];
    for (const std::string& name : {panel.label, panel.value}) {
      const Place& now = window_[name];
      window_.set_place(name, {left, now.top, width_of_column_at(left), now.height});
    }
  }

 private:
  Window& window_;
  const LabelColumns& lefts_;
};

std::size_t shown_phases(const Arrangement& arrangement, PhaseQuantity quantity) {
  switch (quantity) {
    case PhaseQuantity::V:
      return arrangement.voltages;
    case PhaseQuantity::I:
      return arrangement.currents;
    case PhaseQuantity::Phase:
      return arrangement.angles;
    default:
      return arrangement.powers;
  }
}

}  // namespace

std::span<const DesignColumn, 8> design_columns() { return columns; }

LabelColumns read_label_columns(const Window& meter_rec) {
  LabelColumns lefts{};
  for (std::size_t column = 0; column < anchor_headers.size(); ++column)
    lefts[column] = meter_rec[anchor_headers[column]].left;
  return lefts;
}

void arrange_for_system(Wiring system, Window& meter_rec, const LabelColumns& label_column_left) {
  const Arrangement& arrangement = arrangements[table_index(system)];
  Arranger arranger(meter_rec, label_column_left);
  for (std::size_t phase = 0; phase < phase_count; ++phase) {
    for (const PhaseQuantity quantity : phase_quantities)
      arranger.show(phase_panel(quantity, phase), phase < shown_phases(arrangement, quantity));
    arranger.show(line_panel(phase), phase < arrangement.lines);
    arranger.move(line_panel(phase), arrangement.line_column);
    if (phase < arrangement.moved_voltages)
      arranger.move(phase_panel(PhaseQuantity::V, phase), arrangement.voltage_column);
    if (phase < arrangement.currents)
      arranger.move(phase_panel(PhaseQuantity::I, phase), arrangement.current_column);
    meter_rec.set_visible("L" + std::to_string(phase + 1) + "_name", phase < arrangement.currents);
  }
  for (const Panel& panel : unbalance_panels()) arranger.show(panel, arrangement.lines > 0);
}

}  // namespace halden
