#include "filetools/hardcopy/ui/hardcopy_sheet.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "filetools/hardcopy/hardcopy_form.h"
#include "screen/ui/card.h"

namespace halden {

namespace {

constexpr QSize smallest_size(240, 136);

void paint_row(QPainter& painter, const std::string& line, QPointF at, double dot) {
  for (std::size_t x = line.find('#'); x != std::string::npos;) {
    const std::size_t end = std::min(line.find(' ', x), line.size());
    painter.fillRect(
        QRectF(at.x() + dot * static_cast<double>(x), at.y(), dot * static_cast<double>(end - x), dot),
        Qt::black);
    x = line.find('#', end);
  }
}

}  // namespace

HardcopySheet::HardcopySheet(FormWindow& form, QWidget* parent)
    : QWidget(parent), window_(form.window()), theme_(form.theme()) {
  setObjectName(to_qt(hardcopy_picture));
  setMinimumSize(smallest_size);
  form.mirror().tie(std::string(hardcopy_picture), [this](const Control& now) {
    setAccessibleName(to_qt(now.accessible_name));
    update();
  });
  form.mirror().tie(std::string(hardcopy_date),
                    [this](const Control& now) { setAccessibleDescription(to_qt(now.text)); });
}

double HardcopySheet::dot_size() const {
  const QSizeF size = QSizeF(this->size()) * devicePixelRatioF();
  const double unit =
      std::min(size.width() / double{hardcopy_sheet_width}, size.height() / double{hardcopy_sheet_height});
  const double dot = unit * double{hardcopy_dot};
  return dot < 1 ? dot : std::floor(dot);
}

QRectF HardcopySheet::dots_place() const {
  const QSizeF size = QSizeF(this->size()) * devicePixelRatioF();
  const double dot = dot_size();
  const QSizeF dots(dot * double{hardcopy_width}, dot * double{hardcopy_height});
  return QRectF(
      QPointF(std::floor((size.width() - dots.width()) / 2), std::floor((size.height() - dots.height()) / 2)),
      dots);
}

void HardcopySheet::paintEvent(QPaintEvent*) {
  if (!window_[hardcopy_picture].lines) return paint_card(*this, theme_);
  QPainter painter(this);
  painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  paint_dots(painter);
}

void HardcopySheet::paint_dots(QPainter& painter) const {
  const QRectF dots = dots_place();
  const double dot = dot_size();
  const double margin = std::floor(dot * double{hardcopy_margin / hardcopy_dot});
  const QRectF sheet = dots.adjusted(-margin, -margin, margin, margin);
  painter.fillRect(sheet, theme_.line);
  painter.fillRect(sheet.adjusted(1, 1, -1, -1), Qt::white);
  QPointF at = dots.topLeft();
  for (const std::string& line : *window_[hardcopy_picture].lines) {
    paint_row(painter, line, at, dot);
    at.ry() += dot;
  }
}

}  // namespace halden
