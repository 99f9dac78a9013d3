#include "screen/meter_rec/columns.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::array<DesignColumn, 8> columns = {
    {{46, 126}, {178, 126}, {310, 132}, {448, 141}, {595, 145}, {746, 157}, {909, 96}, {1011, 115}}};
constexpr float column_gap = 6 * units_per_pixel;

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

// Label and value of every panel that stands in a column.
std::set<std::string> make_column_panels() {
  std::set<std::string> names;
  const auto add = [&names](const Panel& panel) { names.insert({panel.label, panel.value}); };
  for (std::size_t phase = 0; phase < phase_count; ++phase) {
    add(line_panel(phase));
    for (const PhaseQuantity quantity : phase_quantities) add(phase_panel(quantity, phase));
  }
  return names;
}

const std::set<std::string>& column_panels() {
  static const std::set<std::string> names = make_column_panels();
  return names;
}

// Width by left position.
std::map<float, float> visible_columns(const Window& meter_rec) {
  std::map<float, float> widths;
  for (const std::string& name : column_panels())
    if (const Control& panel = meter_rec[name]; panel.visible) widths[panel.left] = panel.width;
  return widths;
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

Place place_on_screen(const Window& meter_rec, const std::string& control) {
  Place place = meter_rec[control];
  const std::map<float, float> shown = visible_columns(meter_rec);
  if (!column_panels().contains(control) || !shown.contains(place.left)) return place;
  constexpr float grid_left = static_cast<float>(columns.front().left) * units_per_pixel;
  constexpr float grid_right =
      static_cast<float>(columns.back().left + columns.back().width) * units_per_pixel;
  float own_widths = 0;
  for (const auto& [left, width] : shown) own_widths += width;
  const float stretch =
      (grid_right - grid_left - column_gap * static_cast<float>(shown.size() - 1)) / own_widths;
  float left = grid_left;
  for (auto column = shown.begin(); column->first != place.left; ++column)
    left += column->second * stretch + column_gap;
  place.left = left;
  place.width *= stretch;
  return place;
}

}  // namespace halden
