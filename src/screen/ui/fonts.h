// Which fonts the windows use, and how large a text may be so that it still fits its place.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace halden {

// The text font: Noto Sans where the system has it, with a Chinese font as fallback. Its digits have one
// width.
QFont text_font();

// The bold variant for readings.
QFont reading_font();

// For lines whose columns stand below one another: Courier New, or else the system's font of fixed pitch.
QFont fixed_font();

QFont with_pixel_size(QFont font, int pixels);

// The width a text takes, rounded up.
int width_of(const QFont& font, const QString& text);

// The largest size in pixels, from `smallest` to `largest`, at which the text is not wider and its line not
// higher than the room. `smallest` when nothing fits.
int largest_size(const QFont& font, const QString& text, QSize room, int smallest, int largest);

}  // namespace halden
