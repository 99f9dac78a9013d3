#include "app/ui/busy_bar.h"

#include <QPainter>

namespace halden {

namespace {

constexpr int bar_height = 4;
constexpr int step_ms = 120;
constexpr int steps_across = 12;  // there and back is twice as many
constexpr int piece_share = 4;    // the piece is a quarter of the bar

}  // namespace

BusyBar::BusyBar(const Theme& theme, QWidget* parent) : QWidget(parent), theme_(theme) {
  setFixedHeight(bar_height);
  steps_.setInterval(step_ms);
  connect(&steps_, &QTimer::timeout, this, [this] {
    step_ = (step_ + 1) % (2 * steps_across);
    update();
  });
}

void BusyBar::showEvent(QShowEvent*) { steps_.start(); }

void BusyBar::hideEvent(QHideEvent*) { steps_.stop(); }

void BusyBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme_.line);
  const int piece = width() / piece_share;
  const int position = step_ < steps_across ? step_ : 2 * steps_across - step_;
  painter.fillRect(QRect((width() - piece) * position / steps_across, 0, piece, height()), theme_.accent);
}

}  // namespace halden
