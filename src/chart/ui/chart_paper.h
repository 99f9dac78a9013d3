// A chart on paper and in pictures, drawn as on the screen but in the light colours on white (or black and
// white), without the cursor.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>

#include "chart/axes.h"
#include "chart/chart.h"

class QPaintDevice;

namespace halden {

// Draws into a rectangle of a printer's page, or of any other device that nobody paints on at the moment, in
// the device's pixels. The chart is laid out for `layout` pixels of a screen and scaled until it fits.
void paint_chart(QPaintDevice& device, const QRectF& place, const Chart& chart, const ChartPart& part,
                 QSize layout);

// A picture of `layout` times `scale` pixels; texts and lines are as much larger.
QImage chart_image(const Chart& chart, const ChartPart& part, QSize layout, double scale);

}  // namespace halden
