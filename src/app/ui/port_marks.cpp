#include "app/ui/port_marks.h"

#include <QAction>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <array>

#include "screen/meter_rec/menus.h"
#include "screen/ui/form_window.h"

namespace halden {

namespace {

// A tick for the chosen port, a disc behind it where the device is there. Both are in one icon, because an
// icon takes the place of the tick that Qt draws.
QPixmap draw_marks(const Control& entry, const QColor& colour, int size) {
  constexpr double designed_size = 16;
  constexpr std::array tick = {QPointF(1, 8.5), QPointF(3.5, 11), QPointF(7.5, 5)};
  QPixmap marks(size, size);
  marks.fill(Qt::transparent);
  QPainter painter(&marks);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / designed_size, size / designed_size);
  painter.setPen(QPen(colour, 1.6));
  if (entry.checked) painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  if (entry.tag == present_tag) painter.drawEllipse(QPointF(12.5, 8), 3, 3);
  return marks;
}

// In the colours of the texts beside it, also while the pointer is on the entry.
QIcon make_icon(const Control& entry, const Theme& theme) {
  QIcon icon;
  if (!entry.checked && entry.tag != present_tag) return icon;
  for (const int size : {16, 32}) {
    icon.addPixmap(draw_marks(entry, theme.text, size), QIcon::Normal);
    icon.addPixmap(draw_marks(entry, theme.panel, size), QIcon::Active);
  }
  return icon;
}

}  // namespace

void tie_port_marks(QAction& action, const std::string& name, FormWindow& form) {
  form.mirror().tie(
      name, [&action, &theme = form.theme()](const Control& now) { action.setIcon(make_icon(now, theme)); });
}

}  // namespace halden
