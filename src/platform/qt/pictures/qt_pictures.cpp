#include "platform/qt/pictures/qt_pictures.h"

#include <QClipboard>
#include <QGuiApplication>

#include "chart/ui/chart_paper.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr QSize layout(1100, 470);  // as large as on the screen
constexpr double copied_scale = 2;

}  // namespace

void QtPictures::copy_chart(const Chart& chart) {
  QGuiApplication::clipboard()->setImage(chart_image(chart, whole_of(chart), layout, copied_scale));
}

void QtPictures::copy_text(const std::string& text) { QGuiApplication::clipboard()->setText(to_qt(text)); }

FileFailure QtPictures::save_chart(const Chart& chart, const std::string& path) {
  const QByteArray content =
      chart_file(picture_kind(path).value_or(PictureKind::png), chart, whole_of(chart), layout);
  return files_.replace(path, std::string_view(content.data(), static_cast<std::size_t>(content.size())));
}

}  // namespace halden
