#include "screen/ui/design_area.h"

#include <QPoint>

namespace halden {

DesignArea::DesignArea(const Window& window, double design_width, double design_height, QWidget* parent)
    : QWidget(parent), window_(window), design_width_(design_width), design_height_(design_height) {}

void DesignArea::put(const std::string& control, QWidget& child) {
  children_.push_back({control, {}, &child});
}

void DesignArea::put_at(const Place& place, QWidget& child) { children_.push_back({{}, place, &child}); }

QRect DesignArea::in_pixels(const Place& place) const {
  const double across = width() / design_width_;
  const double down = height() / design_height_;
  const double left = static_cast<double>(place.left);
  const double top = static_cast<double>(place.top);
  const QPoint top_left(qRound(left * across), qRound(top * down));
  const QPoint bottom_right(qRound((left + static_cast<double>(place.width)) * across),
                            qRound((top + static_cast<double>(place.height)) * down));
  return QRect(top_left, bottom_right - QPoint(1, 1));
}

void DesignArea::arrange() {
  for (const Child& child : children_)
    child.widget->setGeometry(in_pixels(child.control.empty() ? child.own_place : place_of(child.control)));
  Q_EMIT arranged();
}

void DesignArea::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

}  // namespace halden
