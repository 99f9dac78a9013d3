#include "app/ui/recording_mark.h"

#include <QHBoxLayout>
#include <QPainter>

#include "screen/ui/fonts.h"
#include "screen/windows.h"

namespace halden {

namespace {

constexpr int text_pixels = 13;
constexpr int dot_size = 10;
constexpr int dot_left = 4;
constexpr int text_left = dot_left + dot_size + 7;
constexpr int right_margin = 16;

}  // namespace

RecordingMark::RecordingMark(Window& notice, const Theme& theme)
    : window_(notice), theme_(theme), mirror_(notice), text_(new QLabel(this)) {
  setObjectName(to_qt(recording_mark));
  text_->setFont(with_pixel_size(text_font(), text_pixels));
  text_->setTextFormat(Qt::PlainText);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(text_left, 0, right_margin, 0);
  row->addWidget(text_);
  mirror_.tie("Text1", [this](const Control& now) {
    text_->setText(to_qt(now.text));
    setAccessibleDescription(to_qt(now.text));
  });
  mirror_.tie(std::string(recording_mark),
              [this](const Control& now) { setAccessibleName(to_qt(now.accessible_name)); });
  setVisible(false);
}

void RecordingMark::show_changes() {
  mirror_.show_changes();
  setVisible(window_.visible() && is_lasting_notice(window_));
}

void RecordingMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme_.warning);
  painter.drawEllipse(QRectF(dot_left, (height() - dot_size) / 2.0, dot_size, dot_size));
}

}  // namespace halden
