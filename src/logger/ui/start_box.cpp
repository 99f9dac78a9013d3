#include "logger/ui/start_box.h"

#include <QFontMetrics>

#include "screen/ui/fonts.h"
#include "screen/ui/theme.h"

namespace halden {

namespace {

// Those of a card with its frame.
constexpr int caption_left = 10;
constexpr int caption_top = 5;

constexpr int frame = 8;  // line and padding of the box on one side

QString leading_blanks(const QString& text) {
  const QString all = text + QLatin1Char('.');
  return all.left(all.indexOf(all.trimmed()));
}

}  // namespace

StartBox::StartBox(const QString& label_name, const QString& value_name, QWidget* parent)
    : QWidget(parent), value_(new QLineEdit(this)), caption_(new QLabel(this)) {
  caption_->setObjectName(label_name);
  caption_->setTextFormat(Qt::PlainText);
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
  set_role(*caption_, Role::quiet);
  value_->setObjectName(value_name);
  value_->setAlignment(Qt::AlignRight | Qt::AlignBottom);
  set_role(*value_, Role::edit_box);
}

void StartBox::set_caption(const QString& caption) {
  caption_->setText(caption);
  arrange();
}

void StartBox::set_caption_font(const QFont& font) {
  caption_->setFont(font);
  arrange();
}

int StartBox::largest_for(const QString& text, int smallest, int largest) const {
  const QSize room(width() - 2 * frame, height() - value_->textMargins().top() - frame);
  return largest_size(reading_font(), text, room, smallest, largest);
}

void StartBox::set_size(int pixels) { value_->setFont(with_pixel_size(reading_font(), pixels)); }

void StartBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void StartBox::arrange() {
  const int left = caption_left - width_of(caption_->font(), leading_blanks(caption_->text()));
  const int caption_height = QFontMetrics(caption_->font()).height();
  const int top = height() < 4 * caption_height ? caption_top / 2 : caption_top;
  caption_->setGeometry(left, top, width() - left, caption_height);
  value_->setGeometry(rect());
  value_->setTextMargins(0, top + caption_height, 0, 0);
}

}  // namespace halden
