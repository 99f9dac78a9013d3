#include "chart/ui/chart_paper.h"

#include <algorithm>

#include "chart/ui/chart_plot.h"

namespace halden {

void paint_chart(QPaintDevice& device, const QRectF& place, const Chart& chart, const ChartPart& part,
                 QSize layout) {
  ChartPlot plot(theme(Look::paper), nullptr);
  plot.set_chart(chart);
  plot.show_part(part, layout);
  const double scale = std::min(place.width() / layout.width(), place.height() / layout.height());
  QCPPainter painter(&device);
  painter.translate(place.topLeft());
  painter.scale(scale, scale);
  // A hairline would vanish on a page of 1200 dots per inch.
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNonCosmetic);
  plot.toPainter(&painter, layout.width(), layout.height());
}

QImage chart_image(const Chart& chart, const ChartPart& part, QSize layout, double scale) {
  QImage image((QSizeF(layout) * scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  paint_chart(image, QRectF(image.rect()), chart, part, layout);
  return image;
}

}  // namespace halden
