// A reading as it is painted: the number large and bold, its unit smaller, lighter and quiet on the same
// baseline, so that the digits can be as large as the panel allows.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>

class QPainter;

namespace halden {

struct ReadingText {
  QString number;  // "2.298", or the whole text where it is no number with a unit ("12:30:44", "------")
  QString unit;    // "KW", "%", or empty
};

// "OL %" has the unit "%"; blanks around the text are dropped.
ReadingText split_reading(const QString& text);

// The fonts of a reading at a size of its number in pixels. Kept as long as the size stays: making fonts
// costs more than painting.
struct ReadingFonts {
  explicit ReadingFonts(int number_pixels);

  int pixels;
  QFont number;
  QFont unit;
  double gap;     // between number and unit
  double height;  // of a line of digits and capital letters
};

// Width and height in pixels.
QSize reading_size(const ReadingText& text, const ReadingFonts& fonts);

// The largest size of the number, from `smallest` to `largest`, at which the text fits into the room.
// `smallest` when nothing fits.
int largest_reading(const ReadingText& text, QSize room, int smallest, int largest);

struct ReadingColours {
  QColor number;
  QColor unit;
};

// The text stands at the left or right edge of the place, on its bottom or in the middle of its height.
void paint_reading(QPainter& painter, const ReadingText& text, const QRect& place, Qt::Alignment side,
                   const ReadingFonts& fonts, const ReadingColours& colours);

}  // namespace halden
