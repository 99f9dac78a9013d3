// Which points of a chart are drawn, and which one the cursor means.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "chart/axes.h"
#include "chart/chart.h"

namespace halden {

struct DrawnPoint {
  double x = 0;
  double y = 0;  // NaN for a gap

  bool operator==(const DrawnPoint&) const = default;
};

// The points within the range, with one more on both sides so that lines reach its ends. The range is as wide
// as `columns` pixels. Where two points or more fall into each of them only the smallest and the largest are
// left, at a quarter of its width: on the screen that looks the same, and 100,000 points are drawn as quickly
// as two per column. A column without any value is one gap.
std::vector<DrawnPoint> drawn_points(const std::vector<double>& points, const Range& x, std::size_t columns);

// Those with a gap or an end on both sides: no line leads to them.
std::vector<DrawnPoint> lone_points(const std::vector<DrawnPoint>& drawn);

// The area between two lines as one line from side to side, one stroke for each column of pixels: to fill it
// as a polygon takes hundreds of milliseconds for a few thousand points.
std::vector<DrawnPoint> band_points(const std::vector<double>& one, const std::vector<double>& other,
                                    const Range& x, std::size_t columns);

// The point nearest to the X position at which some data set has a value; the earlier of two.
std::optional<std::size_t> nearest_point(const Chart& chart, double x);

}  // namespace halden
