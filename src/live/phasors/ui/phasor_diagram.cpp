#include "live/phasors/ui/phasor_diagram.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "screen/ui/card.h"
#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int smallest_text = 10;
constexpr int largest_text = 48;

// Widths in design pixels.
constexpr double voltage_width = 3.2;
constexpr double current_width = 1.8;
constexpr double line_voltage_width = 1.4;

constexpr double circle_width = 1.3;

// The distance of a label from its point, in 1/1440 inch, so that it does not begin on the vector.
constexpr float label_padding = 110;

// The clear background of a label: how far it extends beside the text, and the part of the line's height that
// may hold ink.
constexpr double label_margin = 3;
constexpr double inked_line_height = 0.76;

// One mark on the outer circle every 30 degrees.
constexpr int directions = 12;
constexpr double full_turn = 6.283185307179586;

// A text is readable while another covers no more than this part of its height.
constexpr double readable_overlap = 0.4;

bool hides(const DiagramLabel& front, const DiagramLabel& behind) {
  return (front.place & behind.place).height() > readable_overlap * behind.place.height();
}

std::array<VectorKind, 3> back_to_front() {
  return {VectorKind::line_voltage, VectorKind::current, VectorKind::voltage};
}

}  // namespace

PhasorDiagram::PhasorDiagram(const Window& window, const Theme& theme, QWidget* parent)
    : QWidget(parent), window_(window), theme_(theme) {
  setObjectName(QStringLiteral("phasor_diagram"));
  setAccessibleName(to_qt(window.caption()));
}

// The texts of the labels are also the description for assistive technology and the tooltip.
void PhasorDiagram::show_changes() {
  QStringList texts;
  const QString state = to_qt(window_[phasor_outer_circle].description);
  if (!state.isEmpty()) texts.append(state);
  for (const DiagramLabel& label : labels()) texts.append(label.text);
  setAccessibleDescription(texts.join(QStringLiteral("\n")));
  setToolTip(accessibleDescription());
  update();
}

double PhasorDiagram::scale() const { return width() / static_cast<double>(phasor_diagram_width); }

QPointF PhasorDiagram::to_pixels(float x, float y) const {
  return QPointF(static_cast<double>(x - phasor_diagram_left), static_cast<double>(y - phasor_diagram_top)) *
         scale();
}

QRectF PhasorDiagram::to_pixels(const Place& place) const {
  return QRectF(to_pixels(place.left, place.top),
                to_pixels(place.left + place.width, place.top + place.height));
}

double PhasorDiagram::pen_width(double design_pixels) const {
  return std::max(1.0, design_pixels * scale() * static_cast<double>(units_per_pixel));
}

QColor PhasorDiagram::colour_of(const PhasorVector& vector) const {
  const bool old = window_[phasor_outer_circle].old;
  if (old || vector.kind == VectorKind::line_voltage) return theme_.quiet;
  return theme_.phase[vector.phase];
}

QPen PhasorDiagram::pen_of(const PhasorVector& vector) const {
  QPen pen(colour_of(vector));
  pen.setCapStyle(Qt::RoundCap);
  if (vector.kind == VectorKind::line_voltage) {
    pen.setWidthF(pen_width(line_voltage_width));
    pen.setDashPattern({5, 4});
  } else {
    pen.setWidthF(pen_width(vector.kind == VectorKind::voltage ? voltage_width : current_width));
  }
  return pen;
}

void PhasorDiagram::paintEvent(QPaintEvent*) {
  paint_card(*this, theme_);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  draw_circles(painter);
  for (const VectorKind kind : back_to_front()) draw_lines(painter, kind);
  for (const VectorKind kind : back_to_front()) draw_markers(painter, kind);
  draw_legend(painter, VectorKind::voltage, voltage_legend);
  draw_legend(painter, VectorKind::current, current_legend);
  draw_labels(painter);
}

void PhasorDiagram::draw_circles(QPainter& painter) const {
  painter.setPen(QPen(theme_.grid, pen_width(circle_width)));
  painter.setBrush(Qt::NoBrush);
  const QRectF outer = to_pixels(window_[phasor_outer_circle]);
  const QPointF centre = outer.center();
  for (int k = 0; k < directions; ++k) {
    const double turn = full_turn * k / directions;
    const QPointF end(std::cos(turn) * outer.width() / 2, std::sin(turn) * outer.height() / 2);
    const bool is_axis = k % (directions / 4) == 0;
    painter.drawLine(centre + end * (is_axis ? 0 : 0.96), centre + end);
  }
  for (const std::string_view circle : {phasor_outer_circle, phasor_inner_circle})
    painter.drawEllipse(to_pixels(window_[circle]));
}

void PhasorDiagram::draw_lines(QPainter& painter, VectorKind kind) const {
  for (const PhasorVector& vector : phasor_vectors()) {
    const Control& line = window_[vector.line];
    if (vector.kind != kind || !line.visible) continue;
    painter.setPen(pen_of(vector));
    painter.drawLine(to_pixels(line.left, line.top),
                     to_pixels(line.left + line.width, line.top + line.height));
  }
}

void PhasorDiagram::draw_markers(QPainter& painter, VectorKind kind) const {
  for (const PhasorVector& vector : phasor_vectors())
    if (vector.kind == kind && !vector.marker.empty() && window_[vector.marker].visible)
      draw_marker(painter, kind, to_pixels(window_[vector.marker]), colour_of(vector));
}

// A thin outline in the panel's colour separates markers at the same place.
void PhasorDiagram::draw_marker(QPainter& painter, VectorKind kind, const QRectF& place,
                                const QColor& colour) const {
  if (kind == VectorKind::voltage) {
    painter.setPen(QPen(theme_.panel, pen_width(1)));
    painter.setBrush(colour);
    painter.drawEllipse(place);
  } else {
    painter.setPen(QPen(colour, pen_width(current_width)));
    painter.setBrush(theme_.panel);
    painter.drawRect(place);
  }
}

// A marker with its meaning beside it.
void PhasorDiagram::draw_legend(QPainter& painter, VectorKind kind, std::string_view control) const {
  const Control& legend = window_[control];
  const QRectF place = to_pixels(legend);
  const double size = static_cast<double>(window_[phasor_vectors().front().marker].width) * scale();
  QRectF marker(0, 0, size, size);
  marker.moveCenter(QPointF(place.left() + size, place.center().y()));
  draw_marker(painter, kind, marker, theme_.quiet);
  painter.setFont(label_font_);
  painter.setPen(theme_.quiet);
  painter.drawText(place.adjusted(2.5 * size, 0, 0, 0), Qt::AlignVCenter, to_qt(legend.text));
}

void PhasorDiagram::resizeEvent(QResizeEvent*) {
  const Control& label = window_[phasor_vectors().front().label];
  const QSizeF room =
      QSizeF(static_cast<double>(label.width - label_padding), static_cast<double>(label.height)) * scale();
  label_font_ = with_pixel_size(text_font(), largest_size(text_font(), to_qt(widest_vector_label),
                                                          room.toSize(), smallest_text, largest_text));
}

std::vector<DiagramLabel> PhasorDiagram::labels() const {
  std::vector<DiagramLabel> shown;
  const double padding = static_cast<double>(label_padding) * scale();
  for (const PhasorVector& vector : phasor_vectors()) {
    const Control& label = window_[vector.label];
    if (!label.visible || label.text.empty()) continue;
    const bool leftward = label.tag == right_end_tag;
    QRectF place = to_pixels(label);
    const QString text = to_qt(label.text);
    const double width = width_of(label_font_, text) + padding;
    if (leftward)
      place.setLeft(place.right() - width);
    else
      place.setWidth(width);
    shown.push_back({place.adjusted(leftward ? 0 : padding, 0, leftward ? -padding : 0, 0), text,
                     colour_of(vector), leftward ? Qt::AlignRight : Qt::AlignLeft});
  }
  return shown;
}

// A label that an earlier one hides is listed in the corner. Voltages come first, so of a current in phase
// with its voltage (every resistive load) the current's label is listed.
std::vector<DiagramLabel> PhasorDiagram::drawn_labels() const {
  std::vector<DiagramLabel> drawn;
  std::vector<DiagramLabel> hidden;
  for (const DiagramLabel& label : labels()) {
    const auto hides_it = [&label](const DiagramLabel& front) { return hides(front, label); };
    const bool is_hidden = std::any_of(drawn.begin(), drawn.end(), hides_it);
    (is_hidden ? hidden : drawn).push_back(label);
  }
  QPointF corner = QPointF(label_padding, label_padding) * scale();
  for (DiagramLabel& label : hidden) {
    label.place.moveTopLeft(corner);
    label.side = Qt::AlignLeft;
    corner.ry() += label.place.height();
    drawn.push_back(label);
  }
  return drawn;
}

// The places of all texts are cleared before the first text is drawn, so that none clears a part of another.
void PhasorDiagram::draw_labels(QPainter& painter) const {
  painter.setFont(label_font_);
  const std::vector<DiagramLabel> drawn = drawn_labels();
  QRectF ground(0, 0, 0, QFontMetricsF(label_font_).height() * inked_line_height);
  for (const DiagramLabel& label : drawn) {
    ground.setWidth(label.place.width() + 2 * pen_width(label_margin));
    ground.moveCenter(label.place.center());
    painter.fillRect(ground.toAlignedRect(), theme_.panel);
  }
  for (const DiagramLabel& label : drawn) {
    painter.setPen(label.colour);
    painter.drawText(label.place, static_cast<int>(label.side | Qt::AlignVCenter | Qt::TextSingleLine),
                     label.text);
  }
}

}  // namespace halden
