#include "screen/ui/value_panel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <utility>

#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr int bar_width = 4;
constexpr int corner = 5;
constexpr int side_margin = 7;  // between the frame (or its bar) and caption and digits
constexpr int top_margin = 5;
constexpr int bottom_margin = 4;

// Pixels that a text field keeps free: two on either side, which negative margins cancel, one above and one
// below, and one for its cursor.
constexpr int field_margin = 2;
constexpr int field_margins_vertical = 2;
constexpr int cursor_width = 1;

// What a reading that is over range begins with: "OL", "OL %".
constexpr QLatin1String over_range_mark("OL");
constexpr int smallest_digits = 6;

int caption_height(const QFont& font) { return QFontMetrics(font).height(); }

}  // namespace

ReadingField::ReadingField(const QString& object_name, QWidget* parent) : QLineEdit(parent) {
  setObjectName(object_name);
  set_role(*this, Role::reading);
  setReadOnly(true);
  setFrame(false);
  setTextMargins(-field_margin, 0, -field_margin, 0);
  setFocusPolicy(Qt::ClickFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(this, &QLineEdit::textChanged, this, [this] {
    set_over_range(*this, text().trimmed().startsWith(over_range_mark));
    fit();
  });
}

int ReadingField::text_room(int field_width) { return field_width - cursor_width; }

void ReadingField::set_size(int pixels) {
  size_ = pixels;
  fit();
}

void ReadingField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  fit();
}

void ReadingField::fit() {
  const QFont wanted = with_pixel_size(reading_font(), size_);
  const int room = text_room(width());
  int pixels = size_;
  const bool too_high = QFontMetrics(wanted).tightBoundingRect(text()).height() > height();
  if (too_high || width_of(wanted, text()) > room)
    pixels =
        largest_size(wanted, text(), QSize(room, height() - field_margins_vertical), smallest_digits, size_);
  if (font().pixelSize() != pixels || font().bold() != wanted.bold())
    setFont(with_pixel_size(wanted, pixels));
}

ValuePanel::ValuePanel(const QString& label_name, const QString& value_name, std::optional<QColor> bar,
                       const Theme& theme, QWidget* parent)
    : QWidget(parent),
      caption_(new QLabel(this)),
      value_(new ReadingField(value_name, this)),
      bar_(std::move(bar)),
      theme_(theme) {
  caption_->setObjectName(label_name);
  caption_->setTextFormat(Qt::PlainText);
  set_role(*caption_, Role::quiet);
  value_->setAlignment(Qt::AlignRight | Qt::AlignBottom);
}

QSize ValuePanel::value_room(QSize panel, const QFont& caption_font) {
  return QSize(
      ReadingField::text_room(caption_room(panel.width())),
      panel.height() - top_margin - caption_height(caption_font) - bottom_margin - field_margins_vertical);
}

int ValuePanel::caption_room(int panel_width) { return panel_width - bar_width - 2 * side_margin; }

void ValuePanel::set_fonts(const QFont& caption_font, int value_pixels) {
  caption_->setFont(caption_font);
  value_->set_size(value_pixels);
  arrange();
}

void ValuePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void ValuePanel::arrange() {
  const int left = bar_width + side_margin;
  const int room = caption_room(width());
  const int caption = caption_height(caption_->font());
  caption_->setGeometry(left, top_margin, room, caption);
  const int value_top = top_margin + caption;
  value_->setGeometry(left, value_top, room, height() - value_top - bottom_margin);
}

void ValuePanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
  painter.fillPath(outline, theme_.panel);
  painter.setPen(theme_.line);
  painter.drawPath(outline);
  if (!bar_) return;
  painter.setClipPath(outline);
  painter.fillRect(QRect(0, 0, bar_width, height()), *bar_);
}

}  // namespace halden
