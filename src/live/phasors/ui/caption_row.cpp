#include "live/phasors/ui/caption_row.h"

#include <cmath>

#include "screen/ui/card.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr int side_margin = 7;

}  // namespace

CaptionRow::CaptionRow(const QString& label_name, const QString& value_name, Frame frame, const Theme& theme,
                       QWidget* parent)
    : QWidget(parent),
      caption_(new QLabel(this)),
      value_(new ReadingField(value_name, Units::smaller, theme, this)),
      frame_(frame),
      theme_(theme) {
  caption_->setObjectName(label_name);
  caption_->setTextFormat(Qt::PlainText);
  set_role(*caption_, Role::quiet);
  value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void CaptionRow::set_caption_part(double part) { caption_part_ = part; }

int CaptionRow::caption_width(int row_width) const {
  return static_cast<int>(std::lround(row_width * caption_part_)) - side_margin;
}

QSize CaptionRow::caption_room(QSize row) const { return QSize(caption_width(row.width()), row.height()); }

QSize CaptionRow::value_room(QSize row) const {
  const int field_width = row.width() - caption_width(row.width()) - 2 * side_margin;
  return QSize(field_width, row.height());
}

void CaptionRow::set_text_sizes(int caption, int value) {
  caption_->setFont(with_pixel_size(text_font(), caption));
  value_->set_size(value);
}

void CaptionRow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int caption = caption_width(width());
  caption_->setGeometry(side_margin, 0, caption, height());
  value_->setGeometry(side_margin + caption, 0, width() - caption - 2 * side_margin, height());
}

void CaptionRow::paintEvent(QPaintEvent*) {
  if (frame_ == Frame::card) paint_card(*this, theme_);
}

}  // namespace halden
