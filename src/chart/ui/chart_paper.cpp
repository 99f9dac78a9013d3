#include "chart/ui/chart_paper.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "chart/ui/chart_plot.h"

namespace halden {

namespace {

constexpr double dots_per_inch = 96;
constexpr double points_per_inch = 72;
constexpr double inches_per_metre = 39.3701;
constexpr double png_scale = 2;

QByteArray to_png(const Chart& chart, const ChartPart& part, QSize layout) {
  QImage image = chart_image(chart, part, layout, png_scale);
  image.setDevicePixelRatio(1);
  const int dots_per_metre = static_cast<int>(std::lround(dots_per_inch * png_scale * inches_per_metre));
  image.setDotsPerMeterX(dots_per_metre);
  image.setDotsPerMeterY(dots_per_metre);
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return content;
}

QByteArray to_svg(const Chart& chart, const ChartPart& part, QSize layout) {
  QByteArray content;
  QBuffer buffer(&content);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(static_cast<int>(dots_per_inch));
  svg.setSize(layout);
  svg.setViewBox(QRect(QPoint(), layout));
  svg.setTitle(QString::fromStdString(chart.title));
  svg.setDescription(QString::fromStdString(chart.description));
  paint_chart(svg, QRectF(QPointF(), layout), chart, part, layout);
  return content;
}

QByteArray to_pdf(const Chart& chart, const ChartPart& part, QSize layout) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setTitle(QString::fromStdString(chart.title));
  pdf.setPageSize(QPageSize(QSizeF(layout) * points_per_inch / dots_per_inch, QPageSize::Point));
  pdf.setPageMargins(QMarginsF());
  paint_chart(pdf, QRectF(0, 0, pdf.width(), pdf.height()), chart, part, layout);
  return content;
}

}  // namespace

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

QByteArray chart_file(PictureKind kind, const Chart& chart, const ChartPart& part, QSize layout) {
  if (kind == PictureKind::png) return to_png(chart, part, layout);
  return kind == PictureKind::svg ? to_svg(chart, part, layout) : to_pdf(chart, part, layout);
}

}  // namespace halden
