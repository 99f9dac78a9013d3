#include "platform/qt/pictures/picture_file.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>

namespace halden {

namespace {

constexpr double dots_per_inch = 96;
constexpr double points_per_inch = 72;
constexpr double inches_per_metre = 39.3701;

QByteArray to_png(const PaperPicture& picture) {
  QImage image = picture_image(picture);
  const int dots_per_metre =
      static_cast<int>(std::lround(dots_per_inch * picture.image_scale * inches_per_metre));
  image.setDotsPerMeterX(dots_per_metre);
  image.setDotsPerMeterY(dots_per_metre);
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return content;
}

QByteArray to_svg(const PaperPicture& picture) {
  QByteArray content;
  QBuffer buffer(&content);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(static_cast<int>(dots_per_inch));
  svg.setSize(picture.layout);
  svg.setViewBox(QRect(QPoint(), picture.layout));
  svg.setTitle(picture.title);
  svg.setDescription(picture.description);
  picture.paint(svg, QRectF(QPointF(), picture.layout));
  return content;
}

QByteArray to_pdf(const PaperPicture& picture) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setTitle(picture.title);
  pdf.setPageSize(QPageSize(QSizeF(picture.layout) * points_per_inch / dots_per_inch, QPageSize::Point));
  pdf.setPageMargins(QMarginsF());
  picture.paint(pdf, QRectF(0, 0, pdf.width(), pdf.height()));
  return content;
}

}  // namespace

QImage picture_image(const PaperPicture& picture) {
  QImage image((QSizeF(picture.layout) * picture.image_scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  picture.paint(image, QRectF(image.rect()));
  return image;
}

QByteArray picture_file(PictureKind kind, const PaperPicture& picture) {
  if (kind == PictureKind::png) return to_png(picture);
  return kind == PictureKind::svg ? to_svg(picture) : to_pdf(picture);
}

}  // namespace halden
