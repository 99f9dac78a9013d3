// Draws the vectors of the phasor window at the places its values give: two circles, lines, markers at their
// tips, and labels above all of them. Voltages are thick lines with a disc, currents thin ones with a square,
// line voltages dashed.
#pragma once

#include <QFont>
#include <QWidget>
#include <string_view>
#include <vector>

#include "live/phasors/phasor_form.h"
#include "screen/ui/theme.h"

class QPainter;

namespace halden {

// A label as it is drawn. `place` is in pixels.
struct DiagramLabel {
  QRectF place;
  QString text;
  QColor colour;
  Qt::Alignment side;
};

class PhasorDiagram : public QWidget {
  Q_OBJECT

 public:
  // Takes the place of the diagram on the page. The window outlives it.
  PhasorDiagram(const Window& window, const Theme& theme, QWidget* parent);

  // Reads the values again.
  void show_changes();

  // The visible labels, in the order of the vectors.
  std::vector<DiagramLabel> labels() const;

  // The same as they are drawn: a label that overlaps an earlier one so far that neither could be read is
  // listed in the corner instead.
  std::vector<DiagramLabel> drawn_labels() const;
  const QFont& label_font() const { return label_font_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  double scale() const;
  QPointF to_pixels(float x, float y) const;
  QRectF to_pixels(const Place& place) const;
  double pen_width(double design_pixels) const;
  QColor colour_of(const PhasorVector& vector) const;
  QPen pen_of(const PhasorVector& vector) const;

  void draw_circles(QPainter& painter) const;
  void draw_lines(QPainter& painter, VectorKind kind) const;
  void draw_markers(QPainter& painter, VectorKind kind) const;
  void draw_marker(QPainter& painter, VectorKind kind, const QRectF& place, const QColor& colour) const;
  void draw_legend(QPainter& painter, VectorKind kind, std::string_view control) const;
  void draw_labels(QPainter& painter) const;

  const Window& window_;
  Theme theme_;
  QFont label_font_;
};

}  // namespace halden
