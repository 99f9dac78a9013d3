// The design of the phasor window PhasorForm: the names of its controls, and their places.
//
// The page is designed 12800 x 8400 units of 1/1440 inch and keeps its proportions on the screen, so that
// circles stay round. The buttons and the angles between pairs of vectors are in a column on the left, the
// diagram right of it, the unbalance figures below. The diagram is as high as the line voltages of a balanced
// supply need, which are sqrt(3) times as long as its phase voltages.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "screen/meter_rec/panels.h"
#include "screen/window.h"

namespace halden {

inline constexpr float phasor_page_width = 12800;
inline constexpr float phasor_page_height = 8400;

// Where the diagram with its labels is drawn.
inline constexpr float phasor_diagram_left = 2320;
inline constexpr float phasor_diagram_top = 120;
inline constexpr float phasor_diagram_width = 10320;
inline constexpr float phasor_diagram_height = 6880;

// The origin of the vectors, and how far from it the longest of them and the labels reach.
inline constexpr int phasor_center_x = 7480;
inline constexpr int phasor_center_y = 3560;
inline constexpr int voltage_radius = 1900;
inline constexpr int current_radius = 1500;
inline constexpr int label_radius = voltage_radius + 150;
inline constexpr int line_label_radius = voltage_radius + 700;

// The widest text a vector label shows; labels are wide enough for it.
inline constexpr std::string_view widest_vector_label = "V12 < 000.0KV, -000.0 >";

// The circle of the voltages; it is marked while the vectors are no longer current. And that of the currents.
inline constexpr std::string_view phasor_outer_circle = "Shape1";
inline constexpr std::string_view phasor_inner_circle = "Shape2";

// What the markers mean, in a corner of the diagram that no vector and no label reaches.
inline constexpr std::string_view voltage_legend = "voltage_legend";
inline constexpr std::string_view current_legend = "current_legend";

// The tag of a label whose text ends at its right edge; all others begin at their left edge.
inline constexpr std::string_view right_end_tag = "right";

enum class VectorKind { voltage, current, line_voltage };

// One vector. Its line is a control that starts at left, top and ends at left + width, top + height: width
// and height carry a sign.
struct PhasorVector {
  std::string_view line;    // "V1_vector"
  std::string_view marker;  // "v1_circle"; line voltages have none
  std::string_view label;   // "v1_vector_label"
  VectorKind kind;
  std::size_t phase;  // 0 to 2; of V12, V23, V31 that of the first
};

// V1 to V3, I1 to I3, then V12, V23, V31.
std::span<const PhasorVector, 9> phasor_vectors();

// The angle between two vectors: caption and value.
struct PhasorPair {
  std::string_view caption_name;
  std::string_view caption;
  std::string_view value;
};

// Three of voltages, three of currents, three of line voltages.
std::span<const PhasorPair, 9> phasor_pairs();

// The figures below the diagram, four of voltage, then four of current; the last of each four is that of the
// neutral.
std::span<const Panel, 8> phasor_panels();

struct PhasorButton {
  std::string_view name;
  std::string_view caption;
};

// The buttons that choose the visible vectors, from top to bottom.
std::span<const PhasorButton, 5> phasor_buttons();

// PhasorForm before it is first shown: hidden; vectors and circles get their places when it is opened.
Window make_phasor_form();

}  // namespace halden
