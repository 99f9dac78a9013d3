#include "screen/ui/elided_label.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "screen/ui/fonts.h"
#include "screen/ui/form_window.h"
#include "screen/ui/theme.h"

namespace halden {

namespace {

constexpr int text_pixels = 13;

}  // namespace

ElidedLabel::ElidedLabel(int least_width, QWidget* parent) : QLabel(parent), least_width_(least_width) {
  setTextFormat(Qt::PlainText);
  setFont(with_pixel_size(text_font(), text_pixels));
  set_role(*this, Role::quiet);
}

QSize ElidedLabel::minimumSizeHint() const {
  return QSize(std::min(least_width_, width_of(font(), text())), QLabel::minimumSizeHint().height());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), static_cast<int>(alignment() | Qt::AlignVCenter | Qt::TextSingleLine),
                   fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) setToolTip(width_of(font(), text()) > width() ? text() : QString());
  return QLabel::event(event);
}

ElidedLabel* build_text_line(std::string_view control, FormWindow& form) {
  constexpr int text_pixels = 13;
  auto* const label = new ElidedLabel(0);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(with_pixel_size(text_font(), text_pixels));
  form.mirror().tie(std::string(control), *label);
  return label;
}

}  // namespace halden
