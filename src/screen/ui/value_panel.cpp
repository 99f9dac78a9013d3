#include "screen/ui/value_panel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <utility>

#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr int bar_width = 4;
constexpr int corner = 5;
constexpr int side_margin = 6;  // between the frame (or its bar) and caption and digits
constexpr int caption_gap = 2;

// Low panels, in small windows, have smaller margins and captions.
constexpr double largest_caption_part = 0.36;  // of the height
int top_margin(int height) { return std::min(5, height / 12); }
int bottom_margin(int height) { return std::min(8, height / 9); }

// What a reading that is over range holds: "OL", "OL %", "-  OL".
constexpr QLatin1String over_range_mark("OL");
constexpr int smallest_digits = 6;
constexpr char16_t no_reading = 0x2013;

int caption_height(const QFont& font) { return QFontMetrics(font).height(); }

bool is_no_value(const QString& number) {
  return std::all_of(number.begin(), number.end(), [](QChar c) { return c == no_reading || c == u'-'; });
}

}  // namespace

ReadingField::ReadingField(const QString& object_name, Units units, const Theme& theme, QWidget* parent)
    : QLineEdit(parent), units_(units), theme_(theme) {
  setObjectName(object_name);
  set_role(*this, Role::reading);
  setReadOnly(true);
  setFrame(false);
  setFocusPolicy(Qt::ClickFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  setFont(fonts_.number);
  connect(this, &QLineEdit::textChanged, this, &ReadingField::follow_text);
}

void ReadingField::follow_text() {
  reading_ = units_ == Units::smaller ? split_reading(text()) : ReadingText{text(), {}};
  set_over_range(*this, text().contains(over_range_mark));
  fit();
}

void ReadingField::set_size(int pixels) {
  size_ = pixels;
  fit();
}

void ReadingField::keep_free(QSize corner) {
  corner_ = corner;
  fit();
}

int ReadingField::largest_for(const ReadingText& text, int smallest, int largest) const {
  const QSize below(width(), height() - corner_.height());
  const QSize beside(width() - corner_.width(), height());
  return std::max(largest_reading(text, below, smallest, largest),
                  largest_reading(text, beside, smallest, largest));
}

void ReadingField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  fit();
}

void ReadingField::mousePressEvent(QMouseEvent*) { selectAll(); }

bool ReadingField::fits() const {
  const QSize needed = reading_size(reading_, fonts_);
  const bool below = needed.width() <= width() && needed.height() <= height() - corner_.height();
  return below || (needed.width() <= width() - corner_.width() && needed.height() <= height());
}

void ReadingField::fit() {
  update();
  if (fonts_.pixels == size_ && fits()) return;
  const int pixels = largest_for(reading_, std::min(smallest_digits, size_), size_);
  if (fonts_.pixels == pixels) return;
  fonts_ = ReadingFonts(pixels);
  setFont(fonts_.number);
}

// Dashes stand for a value that is not known yet, so they are quiet: those of the reading itself and the one
// painted while it is empty.
void ReadingField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  ReadingText shown = reading_;
  if (units_ == Units::smaller && shown.number.isEmpty()) shown.number = no_reading;
  ReadingColours colours{palette().color(QPalette::Text), theme_.quiet};
  if (is_no_value(shown.number)) colours.number = theme_.quiet;
  if (hasSelectedText()) {
    painter.fillRect(rect(), theme_.accent);
    colours = {theme_.panel, theme_.panel};
  }
  paint_reading(painter, shown, rect(), alignment(), fonts_, colours);
}

ValuePanel::ValuePanel(const QString& label_name, const QString& value_name, std::optional<QColor> bar,
                       const Theme& theme, QWidget* parent)
    : QWidget(parent),
      caption_(new QLabel(this)),
      value_(new ReadingField(value_name, Units::smaller, theme, this)),
      bar_(std::move(bar)),
      theme_(theme) {
  caption_->setObjectName(label_name);
  caption_->setTextFormat(Qt::PlainText);
  set_role(*caption_, Role::quiet);
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
  caption_->raise();
  value_->setAlignment(Qt::AlignRight | Qt::AlignBottom);
}

QSize ValuePanel::caption_room(QSize panel) {
  return QSize(panel.width() - bar_width - 2 * side_margin,
               static_cast<int>(panel.height() * largest_caption_part));
}

void ValuePanel::set_caption_font(const QFont& font) {
  caption_->setFont(font);
  arrange();
}

void ValuePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

// Where the panel is wide and low, the digits stand beside the caption instead of below it.
void ValuePanel::arrange() {
  const int left = bar_width + side_margin;
  const int room = caption_room(size()).width();
  const int top = top_margin(height());
  const int caption = caption_height(caption_->font());
  caption_->setGeometry(left, top, room, caption);
  value_->setGeometry(left, top, room, height() - top - bottom_margin(height()));
  value_->keep_free(
      QSize(width_of(caption_->font(), caption_->text()) + 2 * side_margin, caption + caption_gap));
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
