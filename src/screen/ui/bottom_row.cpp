#include "screen/ui/bottom_row.h"

#include <QHBoxLayout>
#include <QPainter>

#include "screen/ui/elided_label.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int line_height = 30;
constexpr int side_margin = 16;
constexpr int gap = 24;

}  // namespace

BottomRow::BottomRow(const Theme& theme, QWidget* parent)
    : QWidget(parent), row_(new QHBoxLayout(this)), theme_(theme) {
  setFixedHeight(line_height);
  row_->setContentsMargins(side_margin, 1, side_margin, 0);
  row_->setSpacing(0);
}

ElidedLabel* BottomRow::add_field(const std::string& control, Mirror& mirror, int least_width, int stretch) {
  auto* const field = new ElidedLabel(least_width);
  field->setObjectName(to_qt(control));
  row_->addWidget(field, stretch);
  if (stretch == 0) row_->addSpacing(gap);
  mirror.tie(control, [field](const Control& now) {
    field->setVisible(now.visible);
    field->setText(to_qt(now.text));
    field->updateGeometry();
  });
  return field;
}

void BottomRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme_.panel);
  painter.fillRect(QRect(0, 0, width(), 1), theme_.line);
}

}  // namespace halden
