#include "live/phasors/phasor_window.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "live/phasors/unbalance.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"
#include "screen/failure_texts.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double right_angle = 900;

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

PhasorWindow::PhasorWindow(const Platform& platform, Windows& windows, Window& meter_rec,
                           const LinkState& link, const MeterStatus& status, const PowerReadings& raw)
    : platform_(platform), meter_rec_(meter_rec), link_(link), status_(status), raw_(raw) {
  windows.add(form_);
  connect();
}

void PhasorWindow::connect() {
  meter_rec_.on_click("phasor_button", [this] { open(); });
  form_.on_click("v_only", [this] { v_only(); });
  form_.on_click("i_only", [this] { i_only(); });
  form_.on_click("vi_all", [this] { vi_all(); });
  form_.on_click("vxy", [this] { vxy(); });
  form_.on_click("hide_vxy", [this] { hide_vxy(); });
  form_.on_click("print_phasor", [this] { print(); });
  form_.on_resize([this] { resized(); });
  form_.on_close([this] { form_.hide(); });
}

void PhasorWindow::open() {
  form_.set_text(status_hint, "");
  if (status_.meter_mode != power_mode) {
    platform_.dialogs.message({"Not in power mode, please press the POWER button", "", Icon::none});
    return;
  }
  if (!form_.visible()) resized();
  form_.show();
}

// Opened or resized: sets the origin and the vectors that the wiring system shows.
void PhasorWindow::resized() {
  place_vectors();
  show_vectors();
}

void PhasorWindow::place_vectors() {
  const auto place_circle = [this](std::string_view name, int radius) {
    const auto size = static_cast<float>(2 * radius);
    form_.set_place(name, {static_cast<float>(phasor_center_x - radius),
                           static_cast<float>(phasor_center_y - radius), size, size});
  };
  place_circle(phasor_outer_circle, voltage_radius);
  place_circle(phasor_inner_circle, current_radius);
  for (const PhasorVector& names : phasor_vectors()) {
    const Place& line = form_[names.line];
    form_.set_place(names.line, {phasor_center_x, phasor_center_y, line.width, line.height});
    const bool never_drawn = form_[names.label].text.empty();
    if (never_drawn && !names.marker.empty()) put_marker(names.marker, {phasor_center_x, phasor_center_y});
  }
}

void PhasorWindow::show_vectors() {
  if (!is_known(status_.wiring_system)) return;
  laid_out_for_ = status_.wiring_system;
  const std::size_t phases = phases_in_use(status_.wiring_system);
  const bool three_phase = is_three_phase(status_.wiring_system);
  show(voltage_vectors(), phases);
  show(current_vectors(), phases);
  show(line_vectors(), three_phase ? phase_count : 0);
  mark_chosen("vi_all");
  show_unbalance(three_phase);
  if (three_phase) form_.set_text("In_label", status_.wiring_system == Wiring::w3p3w ? "Ing" : "In");
}

// The first `count` vectors with their markers and labels.
void PhasorWindow::show(Vectors vectors, std::size_t count) {
  for (std::size_t phase = 0; phase < phase_count; ++phase)
    for (const std::string_view name : {vectors[phase].line, vectors[phase].marker, vectors[phase].label})
      if (!name.empty()) form_.set_visible(name, phase < count);
}

void PhasorWindow::show_unbalance(bool visible) {
  const auto show_both = [&](std::string_view caption, std::string_view value) {
    form_.set_visible(caption, visible);
    form_.set_visible(value, visible);
  };
  for (const Panel& panel : phasor_panels()) show_both(panel.label, panel.value);
  for (const PhasorPair& pair : phasor_pairs()) show_both(pair.caption_name, pair.value);
  show_both("vxy", "hide_vxy");
}

void PhasorWindow::v_only() {
  show_vectors();
  show(current_vectors(), 0);
  show(line_vectors(), 0);
  mark_chosen("v_only");
}

void PhasorWindow::i_only() {
  show_vectors();
  show(voltage_vectors(), 0);
  show(line_vectors(), 0);
  mark_chosen("i_only");
}

void PhasorWindow::vi_all() { show_vectors(); }

void PhasorWindow::vxy() {
  show_vectors();
  show(line_vectors(), phase_count);
  show(voltage_vectors(), 0);
  show(current_vectors(), 0);
  mark_chosen("vxy");
}

// Where no line voltage is shown nothing is hidden, and the view stays the chosen one.
void PhasorWindow::hide_vxy() {
  if (form_[line_vectors().front().line].visible) mark_chosen("hide_vxy");
  show(line_vectors(), 0);
}

void PhasorWindow::mark_chosen(std::string_view button) {
  for (const PhasorButton& each : phasor_buttons()) form_.set_checked(each.name, each.name == button);
}

// Prints an image of the window in landscape; an old hint is cleared first, so that it is not printed.
void PhasorWindow::print() {
  form_.set_text(status_hint, "");
  platform_.printer.set_orientation(Orientation::landscape);
  platform_.printer.print_window(form_.name());
  const PrintFailure failure = platform_.printer.finish();
  form_.set_text(status_hint, print_sentence(failure, platform_.printer.destination(), link_.language));
}

void PhasorWindow::power_frame_shown() {
  angles_ = calculate_vi_angles(raw_);
  if (is_three_phase(status_.wiring_system)) calculate_unbalance(raw_, angles_, status_, meter_rec_, form_);
  update_phasors();
}

// With every frame that is drawn Text1 alternates between empty and the time of the sampling instant.
void PhasorWindow::mark_old(bool old, std::string_view description) {
  const auto mark = [&](std::string_view control) {
    form_.set_old(control, old);
    form_.set_description(control, description);
  };
  mark(phasor_outer_circle);
  for (const PhasorPair& pair : phasor_pairs()) mark(pair.value);
  for (const Panel& panel : phasor_panels()) mark(panel.value);
}

void PhasorWindow::update_phasors() {
  if (!form_.visible()) return;
  form_.set_text("Text1", form_["Text1"].text.empty() ? meter_rec_[sample_clock_label].text : "");
  redraw();
}

void PhasorWindow::redraw() {
  if (!is_known(status_.wiring_system)) return;
  // Vectors of phases that are no longer in use must disappear.
  if (status_.wiring_system != laid_out_for_) resized();
  const Ends voltages = draw(voltage_vectors(), raw_.v_raw, angles_.v_phasor_angle, voltage_radius);
  draw(current_vectors(), raw_.i_raw, angles_.i_phasor_angle, current_radius);
  if (!is_three_phase(status_.wiring_system)) return;
  draw_lines(voltages);
  for (const Panel& panel : unbalance_panels()) form_.set_text(panel.value, meter_rec_[panel.value].text);
  show_pairs(0, angles_.v_phasor_angle);
  show_pairs(3, angles_.i_phasor_angle);
  show_pairs(6, {angles_.line_angle(0), angles_.line_angle(1), angles_.line_angle(2)});
}

// The longest vector of the phases in use reaches the circle.
PhasorWindow::Ends PhasorWindow::draw(Vectors vectors, const PerPhase<double>& sizes,
                                      const PerPhase<double>& angles, int radius) {
  const std::size_t phases = phases_in_use(status_.wiring_system);
  double largest = *std::max_element(sizes.begin(), sizes.begin() + static_cast<std::ptrdiff_t>(phases));
  if (largest == 0) largest = voltage_radius;
  Ends ends;
  for (std::size_t p = 0; p < phases; ++p) {
    const double radians = angles[p] * tenths_to_radians;
    ends[p] = {phasor_center_x + radius * sizes[p] * std::cos(radians) / largest,
               phasor_center_y - radius * sizes[p] * std::sin(radians) / largest};
    put_vector(vectors[p].line, ends[p]);
    put_marker(vectors[p].marker, ends[p]);
    put_label(vectors[p], angles[p], label_radius);
  }
  return ends;
}

void PhasorWindow::draw_lines(const Ends& voltages) {
  for (std::size_t a = 0; a < phase_count; ++a) {
    const std::size_t b = (a + 1) % phase_count;
    put_vector(line_vectors()[a].line, {phasor_center_x + (voltages[a].x - voltages[b].x),
                                        phasor_center_y + (voltages[a].y - voltages[b].y)});
    put_label(line_vectors()[a], angles_.line_angle(a), line_label_radius);
  }
}

void PhasorWindow::put_vector(std::string_view name, Point end) {
  Place vector = form_[name];
  vector.width = static_cast<float>(end.x - static_cast<double>(vector.left));
  vector.height = static_cast<float>(end.y - static_cast<double>(vector.top));
  form_.set_place(name, vector);
}

void PhasorWindow::put_marker(std::string_view name, Point end) {
  Place marker = form_[name];
  marker.left = static_cast<float>(end.x - static_cast<double>(marker.width) / 2);
  marker.top = static_cast<float>(end.y - static_cast<double>(marker.height) / 2);
  form_.set_place(name, marker);
}

// Left of the origin the text ends where it would otherwise begin, so that it does not cover the circle.
void PhasorWindow::put_label(const PhasorVector& names, double angle, int radius) {
  const double radians = angle * tenths_to_radians;
  const bool leftward = angle > right_angle || angle < -right_angle;
  Place label = form_[names.label];
  label.left = static_cast<float>(phasor_center_x + radius * std::cos(radians));
  if (leftward) label.left -= label.width;
  label.top = static_cast<float>(phasor_center_y - radius * std::sin(radians));
  form_.set_place(names.label, label);
  form_.set_tag(names.label, leftward ? right_end_tag : "");
  const Panel& panel = panel_of(names);
  form_.set_text(names.label,
                 panel.caption + " < " + meter_rec_[panel.value].text + ", " + degrees_text(angle) + " >");
}

// The three pairs from the one of that index on.
void PhasorWindow::show_pairs(std::size_t first, const PerPhase<double>& angles) {
  for (std::size_t a = 0; a < phase_count; ++a)
    form_.set_text(phasor_pairs()[first + a].value,
                   degrees_text(angle_difference(angles[a], angles[(a + 1) % phase_count])));
}

}  // namespace halden
