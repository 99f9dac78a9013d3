#include "platform/qt/pictures/qt_pictures.h"

#include <QClipboard>
#include <QGuiApplication>

#include "chart/ui/chart_paper.h"
#include "platform/qt/pictures/dot_paper.h"
#include "platform/qt/pictures/picture_file.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr QSize chart_layout(1100, 470);  // as large as on the screen
constexpr double chart_scale = 2;

// They refer to the picture they are made of.
PaperPicture on_paper(const Chart& chart) {
  return {chart_layout, chart_scale, to_qt(chart.title), to_qt(chart.description),
          [&chart](QPaintDevice& device, const QRectF& place) {
            paint_chart(device, place, chart, whole_of(chart), chart_layout);
          }};
}

PaperPicture on_paper(const DotPicture& picture) {
  return {
      layout_of(picture), 1, to_qt(picture.title), {}, [&picture](QPaintDevice& device, const QRectF& place) {
        paint_dots(device, place, picture);
      }};
}

}  // namespace

void QtPictures::copy_chart(const Chart& chart) {
  QGuiApplication::clipboard()->setImage(picture_image(on_paper(chart)));
}

void QtPictures::copy_dots(const DotPicture& picture) {
  QGuiApplication::clipboard()->setImage(picture_image(on_paper(picture)));
}

void QtPictures::copy_text(const std::string& text) { QGuiApplication::clipboard()->setText(to_qt(text)); }

FileFailure QtPictures::save_chart(const Chart& chart, const std::string& path) {
  return save(on_paper(chart), path);
}

FileFailure QtPictures::save_dots(const DotPicture& picture, const std::string& path) {
  return save(on_paper(picture), path);
}

FileFailure QtPictures::save(const PaperPicture& picture, const std::string& path) {
  const QByteArray content = picture_file(picture_kind(path).value_or(PictureKind::png), picture);
  return files_.replace(path, std::string_view(content.data(), static_cast<std::size_t>(content.size())));
}

}  // namespace halden
