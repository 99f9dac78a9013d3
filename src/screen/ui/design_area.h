// The content of a window whose places are designed in 1/1440 inch: stretches every child from the design
// size to the current size, horizontally and vertically independently.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "screen/window.h"

namespace halden {

class DesignArea : public QWidget {
  Q_OBJECT

 public:
  // `design_width` and `design_height` in 1/1440 inch. The window outlives the area.
  DesignArea(const Window& window, double design_width, double design_height, QWidget* parent = nullptr);

  // The child shows the control of that name, or the panel it belongs to, and takes its place.
  void put(const std::string& control, QWidget& child);

  // The child shows no control and has a place of its own.
  void put_at(const Place& place, QWidget& child);

  // A place at the current size, in pixels; edges of neighbours stay aligned.
  QRect in_pixels(const Place& place) const;

  // Puts every child in its place.
  void arrange();

 Q_SIGNALS:
  void arranged();

 protected:
  // The place in which a control of the window is shown.
  virtual Place place_of(const std::string& control) const { return window_[control]; }

  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Child {
    std::string control;  // empty: it stays at `own_place`
    Place own_place;
    QWidget* widget;
  };

  const Window& window_;
  double design_width_;
  double design_height_;
  std::vector<Child> children_;
};

}  // namespace halden
