#include "screen/ui/fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace halden {

namespace {

// Preferred first. The first one gives Latin letters and digits, the others the glyphs it does not have.
QStringList families() {
  const QStringList wanted = {QStringLiteral("Noto Sans"),        QStringLiteral("Segoe UI"),
                              QStringLiteral("Noto Sans CJK TC"), QStringLiteral("Microsoft JhengHei"),
                              QStringLiteral("PingFang TC"),      QStringLiteral("Noto Sans TC"),
                              QStringLiteral("WenQuanYi Zen Hei")};
  QStringList present;
  for (const QString& family : wanted)
    if (QFontDatabase::hasFamily(family)) present.append(family);
  return present;
}

QFont make_text_font() {
  QFont font;
  const QStringList present = families();
  if (!present.isEmpty()) font.setFamilies(present);
  font.setWeight(QFont::Normal);  // set explicitly, so that no other weight is inherited
  return font;
}

bool fits(const QFont& font, const QString& text, QSize room) {
  return width_of(font, text) <= room.width() && QFontMetricsF(font).height() <= room.height();
}

}  // namespace

QFont text_font() {
  static const QFont font = make_text_font();
  return font;
}

QFont reading_font() {
  QFont font = text_font();
  font.setBold(true);
  return font;
}

QFont fixed_font() {
  const QString preferred = QStringLiteral("Courier New");
  // The name the system gives may stand for a family ("monospace").
  const QFontInfo fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const bool installed = QFontDatabase::hasFamily(preferred);
  QFont font;
  font.setFamilies(QStringList{installed ? preferred : fixed.family()} + families());
  font.setStyleHint(QFont::Monospace);
  return font;
}

QFont with_pixel_size(QFont font, int pixels) {
  font.setPixelSize(std::max(pixels, 1));
  return font;
}

int width_of(const QFont& font, const QString& text) {
  return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text)));
}

// Widths are proportional to the size except for rounding, so an estimate from one large size is close.
int largest_size(const QFont& font, const QString& text, QSize room, int smallest, int largest) {
  constexpr int probe = 64;
  const QFontMetricsF metrics(with_pixel_size(font, probe));
  const double by_width = room.width() * probe / std::max(metrics.horizontalAdvance(text), 1.0);
  const double by_height = room.height() * probe / std::max(metrics.height(), 1.0);
  int size = std::clamp(static_cast<int>(std::min(by_width, by_height)) + 1, smallest, largest);
  while (size > smallest && !fits(with_pixel_size(font, size), text, room)) --size;
  return size;
}

}  // namespace halden
