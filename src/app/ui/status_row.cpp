#include "app/ui/status_row.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int line_height = 30;
constexpr int text_pixels = 13;
constexpr int light_size = 11;
constexpr int side_margin = 16;
constexpr int gap = 24;

// What a field keeps in a window of 640 pixels. The state of the link comes first: it alone tells the cause
// of a lost one.
constexpr int least_of_port = 70;
constexpr int least_of_link = 180;
constexpr int least_of_rate = 70;
constexpr int least_of_recording = 110;

QColor colour_of(LinkMark mark, const Theme& theme) {
  if (mark == LinkMark::linked) return theme.phase[1];
  return mark == LinkMark::lost ? theme.warning : theme.quiet;
}

}  // namespace

ElidedLabel::ElidedLabel(int least_width, QWidget* parent) : QLabel(parent), least_width_(least_width) {
  setTextFormat(Qt::PlainText);
  setFont(with_pixel_size(text_font(), text_pixels));
  set_role(*this, Role::quiet);
}

QSize ElidedLabel::minimumSizeHint() const {
  return QSize(std::min(least_width_, width_of(font(), text())), QLabel::minimumSizeHint().height());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), static_cast<int>(alignment() | Qt::AlignVCenter | Qt::TextSingleLine),
                   fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) setToolTip(width_of(font(), text()) > width() ? text() : QString());
  return QLabel::event(event);
}

LinkMark link_mark(std::string_view tag) {
  constexpr std::array<std::pair<std::string_view, LinkMark>, 3> marks = {
      {{"ok", LinkMark::linked}, {"idle", LinkMark::idle}, {"lost", LinkMark::lost}}};
  for (const auto& [name, mark] : marks)
    if (name == tag) return mark;
  return LinkMark::none;
}

LinkLight::LinkLight(const Theme& theme, QWidget* parent) : QWidget(parent), theme_(theme) {
  setFixedSize(light_size, light_size);
}

void LinkLight::set_mark(LinkMark mark) {
  mark_ = mark;
  setVisible(mark != LinkMark::none);
  update();
}

void LinkLight::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
  const QColor colour = colour_of(mark_, theme_);
  painter.setPen(QPen(colour, 2));
  if (mark_ == LinkMark::linked) painter.setBrush(colour);
  if (mark_ != LinkMark::lost) {
    painter.drawEllipse(box);
    return;
  }
  painter.drawLine(box.topLeft(), box.bottomRight());
  painter.drawLine(box.topRight(), box.bottomLeft());
}

StatusRow::StatusRow(Mirror& mirror, const Theme& theme) : light_(new LinkLight(theme)), theme_(theme) {
  setObjectName(QStringLiteral("status_row"));
  setFixedHeight(line_height);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(side_margin, 1, side_margin, 0);
  row->setSpacing(0);
  add_field("status_port", mirror, least_of_port);
  row->addWidget(light_);
  row->addSpacing(6);
  add_field("status_link", mirror, least_of_link);
  mirror.tie("status_link", [light = light_](const Control& now) { light->set_mark(link_mark(now.tag)); });
  add_field("status_rate", mirror, least_of_rate);
  add_field("status_recording", mirror, least_of_recording);
  add_field("status_hint", mirror, 0, 1)->setAlignment(Qt::AlignRight);
}

ElidedLabel* StatusRow::add_field(const char* name, Mirror& mirror, int least_width, int stretch) {
  auto* const field = new ElidedLabel(least_width);
  field->setObjectName(QLatin1String(name));
  auto* const row = static_cast<QHBoxLayout*>(layout());
  row->addWidget(field, stretch);
  if (stretch == 0) row->addSpacing(gap);
  mirror.tie(name, [field](const Control& now) {
    field->setVisible(now.visible);
    field->setText(to_qt(now.text));
    field->updateGeometry();
  });
  return field;
}

void StatusRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme_.panel);
  painter.fillRect(QRect(0, 0, width(), 1), theme_.line);
}

}  // namespace halden
