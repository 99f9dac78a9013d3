// Draws a picture of the meter's display on paper: its title, and black dots on white below it.
#pragma once

#include <QRectF>
#include <QSize>

#include "platform/pictures.h"

class QPaintDevice;

namespace halden {

// The size at which dots are whole pixels.
QSize layout_of(const DotPicture& picture);

// Fills the place with the picture, scaled. Dots that touch are one area: between single squares other
// programs show hairlines.
void paint_dots(QPaintDevice& device, const QRectF& place, const DotPicture& picture);

}  // namespace halden
