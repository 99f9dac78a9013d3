#include "screen/ui/card.h"

#include <QPainter>
#include <QWidget>

namespace halden {

void paint_card(QWidget& widget, const Theme& theme) {
  constexpr int corner = 5;
  QPainter painter(&widget);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(theme.line);
  painter.setBrush(theme.panel);
  painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}

}  // namespace halden
