#include "app/ui/status_row.h"

#include <QHBoxLayout>
#include <QPainter>
#include <array>
#include <string_view>

#include "screen/ui/elided_label.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int light_size = 11;

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

StatusRow::StatusRow(Mirror& mirror, const Theme& theme) : BottomRow(theme) {
  setObjectName(QStringLiteral("status_row"));
  auto* const light = new LinkLight(theme);
  add_field("status_port", mirror, least_of_port);
  row().addWidget(light);
  row().addSpacing(6);
  add_field("status_link", mirror, least_of_link);
  mirror.tie("status_link", [light](const Control& now) { light->set_mark(link_mark(now.tag)); });
  add_field("status_rate", mirror, least_of_rate);
  add_field("status_recording", mirror, least_of_recording);
  add_field("status_hint", mirror, 0, 1)->setAlignment(Qt::AlignRight);
}

}  // namespace halden
