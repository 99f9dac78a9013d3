#include "platform/qt/pictures/dot_paper.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

// In pixels.
constexpr int dot = 4;
constexpr int margin = 36;
constexpr int title_height = 30;
constexpr int title_pixels = 20;

int top_of_dots(const DotPicture& picture) { return margin + (picture.title.empty() ? 0 : title_height); }

void add_row(QPainterPath& black, const std::string& row, int top) {
  for (std::size_t x = row.find('#'); x != std::string::npos;) {
    const std::size_t end = std::min(row.find(' ', x), row.size());
    black.addRect(margin + dot * static_cast<double>(x), top, dot * static_cast<double>(end - x), dot);
    x = row.find('#', end);
  }
}

}  // namespace

QSize layout_of(const DotPicture& picture) {
  const std::size_t columns = picture.rows.empty() ? 0 : picture.rows.front().size();
  return {dot * static_cast<int>(columns) + 2 * margin,
          dot * static_cast<int>(picture.rows.size()) + top_of_dots(picture) + margin};
}

void paint_dots(QPaintDevice& device, const QRectF& place, const DotPicture& picture) {
  QPainter painter(&device);
  const double scale = place.width() / layout_of(picture).width();
  painter.translate(place.topLeft());
  painter.scale(scale, scale);
  painter.setFont(with_pixel_size(reading_font(), title_pixels));
  painter.setPen(Qt::black);
  painter.drawText(QPointF(margin, margin + title_pixels / 2.0), to_qt(picture.title));
  QPainterPath black;
  black.setFillRule(Qt::WindingFill);
  int top = top_of_dots(picture);
  for (const std::string& row : picture.rows) {
    add_row(black, row, top);
    top += dot;
  }
  painter.fillPath(black, Qt::black);
}

}  // namespace halden
