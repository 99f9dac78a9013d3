#include "chart/ui/chart_paper.h"

#include <algorithm>

#include "chart/ui/chart_plot.h"

namespace halden {

void paint_chart(QPaintDevice& device, const QRectF& place, const Chart& chart, const ChartPart& part,
                 QSize layout) {
  const double scale = std::min(place.width() / layout.width(), place.height() / layout.height());
  const bool is_image = device.devType() == QInternal::Image;
  ChartPlot plot(theme(Look::paper), nullptr);
  if (is_image) plot.setBufferDevicePixelRatio(scale);  // as many columns of points as there are pixels
  plot.set_chart(chart);
  plot.show_part(part, layout);
  QCPPainter painter(&device);
  painter.translate(place.topLeft());
  painter.scale(scale, scale);
  painter.setMode(QCPPainter::pmVectorized);
  // A hairline would vanish on a page of 1200 dots per inch. In an image it is a pixel wide, and a wider one
  // would take several times as long.
  painter.setMode(QCPPainter::pmNonCosmetic, !is_image);
  plot.toPainter(&painter, layout.width(), layout.height());
}

QImage chart_image(const Chart& chart, const ChartPart& part, QSize layout, double scale) {
  QImage image((QSizeF(layout) * scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  paint_chart(image, QRectF(image.rect()), chart, part, layout);
  return image;
}

}  // namespace halden
