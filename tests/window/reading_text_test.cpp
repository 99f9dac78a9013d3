// Readings as they are painted: which part is the unit, and how large they may be.

#include <gtest/gtest.h>

#include <array>

#include "screen/ui/mirror.h"
#include "screen/ui/reading_text.h"
#include "screen/ui/value_panel.h"

namespace halden {
namespace {

TEST(ReadingText, OnlyTheUnitOfANumberIsApart) {
  const std::array<const char*, 3> rows[] = {{"-0.777KVAR", "-0.777", "KVAR"},
                                             {"  OL ", "OL", ""},
                                             {"OL %", "OL", "%"},
                                             {"0.95H", "0.95", "H"},
                                             {"------", "------", ""},
                                             {"", "", ""},
                                             {"12:30:44", "12:30:44", ""},
                                             {"3P4W", "3P4W", ""},
                                             {" 230.1V", "230.1", "V"},
                                             {"22 Nov 2026", "22 Nov 2026", ""}};
  for (const auto& [text, number, unit] : rows) {
    const ReadingText reading = split_reading(QString::fromLatin1(text));
    EXPECT_EQ(from_qt(reading.number), number) << text;
    EXPECT_EQ(from_qt(reading.unit), unit) << text;
  }
}

TEST(ReadingText, GrowsToTheRoomAndNotBeyond) {
  const ReadingText reading = split_reading(QStringLiteral("-00.00KVAR"));
  for (const QSize room : {QSize(60, 40), QSize(141, 70), QSize(600, 50)}) {
    const int pixels = largest_reading(reading, room, 6, 400);
    const QSize size = reading_size(reading, ReadingFonts(pixels));
    const QSize larger = reading_size(reading, ReadingFonts(pixels + 1));
    EXPECT_TRUE(size.width() <= room.width() && size.height() <= room.height()) << room.width();
    EXPECT_TRUE(larger.width() > room.width() || larger.height() > room.height()) << room.width();
  }
  EXPECT_EQ(largest_reading(reading, QSize(5, 5), 6, 400), 6);
}

// The lower part of "Hardcopy" and of Chinese texts stood below the panel.
TEST(ReadingText, LettersBelowTheBaselineStandInsideTheField) {
  const auto inked_pixels = [](const char* text, Qt::Alignment side) {
    ReadingField field(QStringLiteral("value"), Units::smaller, theme(Look::light));
    field.setAlignment(Qt::AlignRight | side);
    field.resize(300, 100);
    field.set_size(40);
    field.setText(QString::fromUtf8(text));
    const QImage picture = field.grab().toImage();
    int inked = 0;
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < picture.height(); ++y)
        if (picture.pixelColor(x, y) != picture.pixelColor(0, 0)) ++inked;
    return inked;
  };
  for (const char* text : {"Hardcopy", "諧波記錄"})
    EXPECT_EQ(inked_pixels(text, Qt::AlignBottom), inked_pixels(text, Qt::AlignVCenter)) << text;
}

// One digit of 60 pixels' font is about 35 wide and 46 high.
TEST(ReadingText, StandsBesideACaptionWhereThatLeavesMoreRoom) {
  ReadingField field(QStringLiteral("value"), Units::smaller, theme(Look::light));
  field.resize(100, 60);
  field.keep_free(QSize(60, 20));
  const ReadingText digit = split_reading(QStringLiteral("8"));
  EXPECT_GE(field.largest_for(digit, 6, 400), 60);
  EXPECT_LE(reading_size(digit, ReadingFonts(field.largest_for(digit, 6, 400))).width(), 40);
  field.keep_free(QSize(90, 20));
  EXPECT_LE(reading_size(digit, ReadingFonts(field.largest_for(digit, 6, 400))).height(), 40);
}

}  // namespace
}  // namespace halden
