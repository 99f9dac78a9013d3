#include "live/phasors/phasor_form.h"

#include <array>
#include <string>
#include <utility>

namespace halden {

namespace {

using enum VectorKind;

constexpr std::array<PhasorVector, 9> vectors = {{{"V1_vector", "v1_circle", "v1_vector_label", voltage, 0},
                                                  {"V2_vector", "v2_circle", "v2_vector_label", voltage, 1},
                                                  {"V3_vector", "v3_circle", "v3_vector_label", voltage, 2},
                                                  {"I1_vector", "I1_square", "i1_vector_label", current, 0},
                                                  {"I2_vector", "i2_square", "i2_vector_label", current, 1},
                                                  {"I3_vector", "i3_square", "i3_vector_label", current, 2},
                                                  {"v12_vector", "", "V12_vector_label", line_voltage, 0},
                                                  {"v23_vector", "", "V23_vector_label", line_voltage, 1},
                                                  {"v31_vector", "", "V31_vector_label", line_voltage, 2}}};

constexpr std::array<PhasorPair, 9> pairs = {{{"v1v2_Label", "<V1, V2>", "angle_v1v2"},
                                              {"v2v3_Label", "<V2, V3>", "angle_v2v3"},
                                              {"v3v1_Label", "<V3, V1>", "angle_v3v1"},
                                              {"i1i2_Label", "<I1, I2>", "angle_i1i2"},
                                              {"i2i3_Label", "<I2, I3>", "angle_i2i3"},
                                              {"i3i1_Label", "<I3, I1>", "angle_i3i1"},
                                              {"v12v23_Label", "<V12, V23>", "angle_v12v23"},
                                              {"v23v31_Label", "<V23, V31>", "angle_v23v31"},
                                              {"v31v12_Label", "<V31, V12>", "angle_v31v12"}}};

constexpr std::array<PhasorButton, 5> buttons = {{{"v_only", "V123"},
                                                  {"i_only", "I123"},
                                                  {"vi_all", "All Vectors"},
                                                  {"vxy", "Vxy"},
                                                  {"hide_vxy", "Hide Vxy"}}};

constexpr std::array captions = {Caption{voltage_legend, {"Voltage", "電壓"}},
                                 Caption{current_legend, {"Current", "電流"}}};
constexpr std::array accessible_names = {Caption{status_hint, {"Message", "訊息"}}};

constexpr float margin = 160;
constexpr float column_width = 2040;  // of buttons and pairs, left of the diagram

void put(Window& window, std::string_view name, const Place& place, std::string_view text = "") {
  Control control;
  static_cast<Place&>(control) = place;
  control.text = text;
  window.add(std::string(name), std::move(control));
}

// Labels are as wide as the diagram allows on each side of the outermost ring of labels.
void put_diagram(Window& window) {
  constexpr Place marker = {0, 0, 150, 150};
  constexpr Place label = {0, 0, 2500, 280};
  for (const std::string_view circle : {phasor_outer_circle, phasor_inner_circle}) put(window, circle, {});
  for (const PhasorVector& vector : vectors) {
    put(window, vector.line, {});
    if (!vector.marker.empty()) put(window, vector.marker, marker);
    put(window, vector.label, label);
  }
}

void put_legend(Window& window) {
  constexpr float height = 280;
  constexpr float width = 1300;
  constexpr float left = phasor_diagram_left + margin;
  constexpr float top = phasor_diagram_top + phasor_diagram_height - margin - height;
  put(window, voltage_legend, {left, top, width, height}, captions[0].text.english);
  put(window, current_legend, {left + width, top, width, height}, captions[1].text.english);
}

void put_buttons(Window& window) {
  constexpr float pitch = 520;
  Place place = {margin, phasor_diagram_top, column_width, 440};
  for (const PhasorButton& button : buttons) {
    put(window, button.name, place, button.caption);
    place.top += pitch;
  }
}

void put_pairs(Window& window) {
  constexpr float top = 3000;
  constexpr float row = 380;
  constexpr float group_gap = 200;
  constexpr float caption_width = 1130;
  for (std::size_t k = 0; k < pairs.size(); ++k) {
    const float y = top + row * static_cast<float>(k) + group_gap * static_cast<float>(k / 3);
    put(window, pairs[k].caption_name, {margin, y, caption_width, row}, pairs[k].caption);
    put(window, pairs[k].value, {margin + caption_width, y, column_width - caption_width, row});
  }
}

// Captions are beside their values.
void put_panels(Window& window) {
  constexpr int in_row = 4;
  constexpr float gap = 120;
  constexpr float top = 7120;
  constexpr float height = 500;
  constexpr float width = (phasor_page_width - 2 * margin - (in_row - 1) * gap) / in_row;
  constexpr float caption_width = 1750;
  int index = 0;
  for (const Panel& panel : phasor_panels()) {
    const float x = margin + (width + gap) * static_cast<float>(index % in_row);
    const float y = top + (height + gap) * static_cast<float>(index / in_row);
    put(window, panel.label, {x, y, caption_width, height}, panel.caption);
    put(window, panel.value, {x + caption_width, y, width - caption_width, height});
    ++index;
  }
}

}  // namespace

std::span<const PhasorVector, 9> phasor_vectors() { return vectors; }

std::span<const PhasorPair, 9> phasor_pairs() { return pairs; }

std::span<const PhasorButton, 5> phasor_buttons() { return buttons; }

std::span<const Panel, 8> phasor_panels() {
  static const std::array<Panel, 8> panels = [] {
    const auto unbalance = unbalance_panels();
    return std::array<Panel, 8>{unbalance[0], unbalance[1], unbalance[2], {"Vn_value", "Vn_label", "Vng"},
                                unbalance[3], unbalance[4], unbalance[5], {"In_value", "In_label", "Ing"}};
  }();
  return panels;
}

Window make_phasor_form() {
  Window window("PhasorForm");
  window.set_caption("PHASOR DIAGRAM");
  window.set_captions(captions);
  window.set_accessible_names(accessible_names);
  put(window, "print_phasor", {}, "&Print");
  put_buttons(window);
  put_diagram(window);
  put_legend(window);
  put_pairs(window);
  put_panels(window);
  put(window, "Text1", {});
  window.set_visible("Text1", false);
  put(window, status_hint, {});
  return window;
}

}  // namespace halden
