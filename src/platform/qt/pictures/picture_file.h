// A picture in the formats of other programs: as an image, and as the content of a PNG, SVG or PDF file.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>
#include <functional>

#include "platform/pictures.h"

class QPaintDevice;

namespace halden {

struct PaperPicture {
  QSize layout;          // in pixels of a screen, which also gives the size in print
  double image_scale{};  // how much finer an image is
  QString title;
  QString description;
  std::function<void(QPaintDevice& device, const QRectF& place)> paint;  // on white ground
};

QImage picture_image(const PaperPicture& picture);
QByteArray picture_file(PictureKind kind, const PaperPicture& picture);

}  // namespace halden
