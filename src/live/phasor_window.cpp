#include "live/phasor_window.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "platform/dialogs.h"
#include "platform/printer.h"
#include "readings/angles.h"
#include "readings/patterns.h"
#include "screen/panels.h"

namespace halden {

namespace {

constexpr double right_angle = 900;
constexpr std::int16_t three_wires = 2;

bool is_known(std::int16_t wiring_system) { return wiring_system >= 0 && wiring_system <= 3; }

std::span<const PhasorVector, 3> voltage_vectors() { return phasor_vectors().subspan<0, 3>(); }
std::span<const PhasorVector, 3> current_vectors() { return phasor_vectors().subspan<3, 3>(); }
std::span<const PhasorVector, 3> line_vectors() { return phasor_vectors().subspan<6, 3>(); }

// The panel of the main window that shows the size of a vector; its caption names the vector.
const Panel& panel_of(const PhasorVector& vector) {
  if (vector.kind == VectorKind::line_voltage) return line_panel(vector.phase);
  return phase_panel(vector.kind == VectorKind::voltage ? PhaseQuantity::V : PhaseQuantity::I, vector.phase);
}

std::string degrees_text(double tenths) { return format_pattern(tenths / 10, "##0.0"); }

}  // namespace

void PhasorWindow::open() {
  if (status_.meter_mode != power_mode) {
    platform_.dialogs.message({"Not in power mode, please press the POWER button", "", Icon::none});
    return;
  }
  geometry_.phasor_center_y = PhasorGeometry().phasor_center_y;
  if (!form_.visible()) resized();
  form_.show();
}

void PhasorWindow::resized() {
  geometry_.phasor_center_x = PhasorGeometry().phasor_center_x;
  geometry_.phasor_center_y = PhasorGeometry().phasor_center_y;
  place_vectors();
  show_vectors();
}

void PhasorWindow::place_vectors() {
  const auto place_circle = [this](std::string_view name, int radius) {
    Control& circle = form_[name];
    circle.left = static_cast<float>(geometry_.phasor_center_x - radius);
    circle.top = static_cast<float>(geometry_.phasor_center_y - radius);
    circle.width = circle.height = static_cast<float>(2 * radius);
  };
  place_circle("Shape1", geometry_.voltage_radius);
  place_circle("Shape2", geometry_.current_radius);
  for (const Vectors vectors : {voltage_vectors(), current_vectors(), line_vectors()})
    for (const PhasorVector& names : vectors) {
      form_[names.line].left = static_cast<float>(geometry_.phasor_center_x);
      form_[names.line].top = static_cast<float>(geometry_.phasor_center_y);
      const bool never_drawn = form_[names.label].text.empty();
      if (never_drawn && !names.marker.empty()) put_marker(names.marker, centre());
    }
}

PhasorWindow::Point PhasorWindow::centre() const {
  return {static_cast<double>(geometry_.phasor_center_x), static_cast<double>(geometry_.phasor_center_y)};
}

void PhasorWindow::show_vectors() {
  if (!is_known(status_.wiring_system)) return;
  laid_out_for_ = status_.wiring_system;
  const int phases = phases_in_use(status_.wiring_system);
  const bool three_phase = phases == phase_count;
  show(voltage_vectors(), phases);
  show(current_vectors(), phases);
  show(line_vectors(), three_phase ? phase_count : 0);
  show_unbalance(three_phase);
  if (three_phase) form_["In_label"].text = status_.wiring_system == three_wires ? "Ing" : "In";
}

// The first `count` vectors with their markers and labels.
void PhasorWindow::show(Vectors vectors, int count) {
  for (int phase = 0; phase < phase_count; ++phase) {
    const PhasorVector& names = vectors[static_cast<std::size_t>(phase)];
    for (const std::string_view name : {names.line, names.marker, names.label})
      if (!name.empty()) form_[name].visible = phase < count;
  }
}

void PhasorWindow::show_unbalance(bool visible) {
  for (const Panel& panel : phasor_panels())
    form_[panel.label].visible = form_[panel.value].visible = visible;
  for (const PhasorPair& pair : phasor_pairs())
    form_[pair.caption_name].visible = form_[pair.value].visible = visible;
  for (const char* button : {"vxy", "hide_vxy"}) form_[button].visible = visible;
}

void PhasorWindow::v_only() {
  show_vectors();
  show(current_vectors(), 0);
  show(line_vectors(), 0);
}

void PhasorWindow::i_only() {
  show_vectors();
  show(voltage_vectors(), 0);
  show(line_vectors(), 0);
}

void PhasorWindow::vi_all() { show_vectors(); }

void PhasorWindow::vxy() {
  show_vectors();
  show(line_vectors(), phase_count);
  show(voltage_vectors(), 0);
  show(current_vectors(), 0);
}

void PhasorWindow::hide_vxy() { show(line_vectors(), 0); }

PrintFailure PhasorWindow::print() {
  platform_.printer.set_orientation(Orientation::landscape);
  platform_.printer.print_window(form_.name());
  return platform_.printer.finish();
}

// The text turns between empty and the time of the sampling instant; its change is what redraws.
void PhasorWindow::update_phasors() {
  if (!form_.visible()) return;
  Control& trigger = form_["Text1"];
  trigger.text = trigger.text.empty() ? meter_rec_[sample_clock_label].text : std::string();
  redraw();
}

void PhasorWindow::redraw() {
  if (!is_known(status_.wiring_system)) return;
  // Vectors of phases that are no longer in use must not stay.
  if (status_.wiring_system != laid_out_for_) resized();
  const Ends voltages = draw(voltage_vectors(), raw_.v_raw, angles_.v_phasor_angle, geometry_.voltage_radius);
  draw(current_vectors(), raw_.i_raw, angles_.i_phasor_angle, geometry_.current_radius);
  if (phases_in_use(status_.wiring_system) != phase_count) return;
  draw_lines(voltages);
  for (const Panel& panel : unbalance_panels()) form_[panel.value].text = meter_rec_[panel.value].text;
  show_pairs(0, angles_.v_phasor_angle);
  show_pairs(3, angles_.i_phasor_angle);
  show_pairs(6, {angles_.line_angle(0), angles_.line_angle(1), angles_.line_angle(2)});
}

// The longest vector of the phases in use reaches the circle.
PhasorWindow::Ends PhasorWindow::draw(Vectors vectors, const PerPhase<double>& sizes,
                                      const PerPhase<double>& angles, int radius) {
  const auto phases = static_cast<std::size_t>(phases_in_use(status_.wiring_system));
  double largest = *std::max_element(sizes.begin(), sizes.begin() + static_cast<std::ptrdiff_t>(phases));
  if (largest == 0) largest = geometry_.voltage_radius;
  Ends ends;
  for (std::size_t p = 0; p < phases; ++p) {
    const double radians = angles[p] * tenths_to_radians;
    ends[p] = {geometry_.phasor_center_x + radius * sizes[p] * std::cos(radians) / largest,
               geometry_.phasor_center_y - radius * sizes[p] * std::sin(radians) / largest};
    put_vector(vectors[p].line, ends[p]);
    put_marker(vectors[p].marker, ends[p]);
    put_label(vectors[p], angles[p], geometry_.label_radius);
  }
  return ends;
}

void PhasorWindow::draw_lines(const Ends& voltages) {
  for (std::size_t a = 0; a < phase_count; ++a) {
    const std::size_t b = (a + 1) % phase_count;
    put_vector(line_vectors()[a].line, {geometry_.phasor_center_x + (voltages[a].x - voltages[b].x),
                                        geometry_.phasor_center_y + (voltages[a].y - voltages[b].y)});
    put_label(line_vectors()[a], angles_.line_angle(a), geometry_.line_label_radius);
  }
}

void PhasorWindow::put_vector(std::string_view name, Point end) {
  Control& vector = form_[name];
  vector.width = static_cast<float>(end.x - static_cast<double>(vector.left));
  vector.height = static_cast<float>(end.y - static_cast<double>(vector.top));
}

void PhasorWindow::put_marker(std::string_view name, Point end) {
  Control& marker = form_[name];
  marker.left = static_cast<float>(end.x - static_cast<double>(marker.width) / 2);
  marker.top = static_cast<float>(end.y - static_cast<double>(marker.height) / 2);
}

// Left of the origin the text ends where it would otherwise begin, so that it extends away from the circle.
void PhasorWindow::put_label(const PhasorVector& names, double angle, int radius) {
  Control& label = form_[names.label];
  const double radians = angle * tenths_to_radians;
  const bool leftward = angle > right_angle || angle < -right_angle;
  label.left = static_cast<float>(geometry_.phasor_center_x + radius * std::cos(radians));
  if (leftward) label.left -= label.width;
  label.top = static_cast<float>(geometry_.phasor_center_y - radius * std::sin(radians));
  label.tag = leftward ? right_end_tag : "";
  const Panel& panel = panel_of(names);
  label.text = panel.caption + " < " + meter_rec_[panel.value].text + ", " + degrees_text(angle) + " >";
}

// The three pairs from the one of that index on.
void PhasorWindow::show_pairs(std::size_t first, const PerPhase<double>& angles) {
  for (std::size_t a = 0; a < phase_count; ++a)
    form_[phasor_pairs()[first + a].value].text =
        degrees_text(angle_difference(angles[a], angles[(a + 1) % phase_count]));
}

}  // namespace halden
