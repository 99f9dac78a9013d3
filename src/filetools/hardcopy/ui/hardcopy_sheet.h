// Paints a picture of the meter's display: black dots on a white sheet, in both looks.
#pragma once

#include <QRect>
#include <QWidget>

#include "screen/ui/form_window.h"

class QPainter;

namespace halden {

class HardcopySheet : public QWidget {
  Q_OBJECT

 public:
  // Takes the lines of the form's picture. The form outlives it.
  HardcopySheet(FormWindow& form, QWidget* parent);

  // Where the dots are, in device pixels: in the middle, as large as fits. Dots are whole pixels, so that all
  // have one size, except where the widget is too small for one pixel each.
  QRectF dots_place() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double dot_size() const;
  void paint_dots(QPainter& painter) const;

  const Window& window_;
  Theme theme_;
};

}  // namespace halden
