#include "screen/ui/reading_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr double unit_part = 0.45;  // the size of the unit against that of the number
constexpr int smallest_unit = 10;
constexpr double gap_part = 0.08;  // between number and unit, against the size of the number

// Digits and capital letters have no descenders, so the height above the baseline is enough for them. Round
// digits reach a little beyond it on both sides.
constexpr double overshoot_part = 0.03;

// Small letters and Chinese characters reach further, up or down.
bool reaches_further(const QString& text) {
  constexpr char16_t first_chinese = 0x2E80;
  return std::any_of(text.begin(), text.end(),
                     [](QChar c) { return c.isLower() || c.unicode() >= first_chinese; });
}

// Of the number, above and below its baseline.
struct Reach {
  double up;
  double down;
};

Reach reach(const ReadingText& text, const ReadingFonts& fonts) {
  const double overshoot = overshoot_part * fonts.pixels;
  const Reach usual{fonts.height - overshoot, overshoot};
  if (!reaches_further(text.number)) return usual;
  const QRectF ink = QFontMetricsF(fonts.number).tightBoundingRect(text.number);
  return {std::max(usual.up, -ink.top()), std::max(usual.down, std::ceil(ink.bottom()))};
}

QFont unit_font(int pixels) {
  const int unit = static_cast<int>(std::lround(pixels * unit_part));
  return with_pixel_size(text_font(), std::clamp(unit, std::min(smallest_unit, pixels), pixels));
}

double width_before_unit(const ReadingText& text, const ReadingFonts& fonts) {
  const double number = QFontMetricsF(fonts.number).horizontalAdvance(text.number);
  return text.unit.isEmpty() ? number : number + fonts.gap;
}

}  // namespace

ReadingText split_reading(const QString& text) {
  static const QRegularExpression number_and_unit(
      QStringLiteral("^\\s*([-+]?[0-9.]+|OL)\\s*([A-Za-z%]*)\\s*$"));
  const QRegularExpressionMatch match = number_and_unit.match(text);
  if (!match.hasMatch()) return {text.trimmed(), {}};
  return {match.captured(1), match.captured(2)};
}

ReadingFonts::ReadingFonts(int number_pixels)
    : pixels(number_pixels),
      number(with_pixel_size(reading_font(), number_pixels)),
      unit(unit_font(number_pixels)),
      gap(number_pixels * gap_part),
      height(QFontMetricsF(number).capHeight() + 2 * overshoot_part * number_pixels) {}

QSize reading_size(const ReadingText& text, const ReadingFonts& fonts) {
  double width = width_before_unit(text, fonts);
  if (!text.unit.isEmpty()) width += QFontMetricsF(fonts.unit).horizontalAdvance(text.unit);
  const auto [up, down] = reach(text, fonts);
  return QSize(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(up + down)));
}

// Widths are proportional to the size except for rounding and the smallest unit, so an estimate from one
// large size is close.
int largest_reading(const ReadingText& text, QSize room, int smallest, int largest) {
  constexpr int probe = 64;
  const QSize at_probe = reading_size(text, ReadingFonts(probe));
  const int by_width = room.width() * probe / std::max(at_probe.width(), 1);
  const int by_height = room.height() * probe / std::max(at_probe.height(), 1);
  const auto fits = [&](int pixels) {
    const QSize size = reading_size(text, ReadingFonts(pixels));
    return size.width() <= room.width() && size.height() <= room.height();
  };
  int pixels = std::clamp(std::min(by_width, by_height) + 1, smallest, largest);
  while (pixels > smallest && !fits(pixels)) --pixels;
  return pixels;
}

void paint_reading(QPainter& painter, const ReadingText& text, const QRect& place, Qt::Alignment side,
                   const ReadingFonts& fonts, const ReadingColours& colours) {
  const bool at_bottom = side.testFlag(Qt::AlignBottom);
  // In the middle all texts of a row have the same baseline, whatever their letters.
  const double bottom = at_bottom ? place.bottom() + 1 : place.center().y() + fonts.height / 2;
  const double down = at_bottom ? reach(text, fonts).down : overshoot_part * fonts.pixels;
  const bool at_right = side.testFlag(Qt::AlignRight);
  const int left = at_right ? place.right() + 1 - reading_size(text, fonts).width() : place.left();
  const QPointF baseline(left, std::round(bottom - down));
  painter.setFont(fonts.number);
  painter.setPen(colours.number);
  painter.drawText(baseline, text.number);
  if (text.unit.isEmpty()) return;
  painter.setFont(fonts.unit);
  painter.setPen(colours.unit);
  painter.drawText(baseline + QPointF(width_before_unit(text, fonts), 0), text.unit);
}

}  // namespace halden
