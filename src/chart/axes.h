// Ranges of the axes, where their ticks stand, and how zooming and moving change them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "chart/chart.h"

namespace halden {

struct Range {
  double low = 0;
  double high = 1;

  double span() const { return high - low; }
  bool operator==(const Range&) const = default;
};

// The part of a chart that is drawn.
struct ChartPart {
  Range x;
  Range y;

  bool operator==(const ChartPart&) const = default;
};

ChartPart whole_of(const Chart& chart);

// All points side by side: from the first to the last, with room for the outermost bars.
Range x_range(const Chart& chart);

// How far the user may zoom out and move: beyond the points of the chart where more can be had.
Range x_reach(const Chart& chart);

// What the user gave, and for the rest the values and the statistics, extended to whole steps. Zero is within
// the range of bars,
// and of lines whose distance from it is at most their span. Without data it is 0 to 1.
Range y_range(const Chart& chart);

// The smallest of 1, 2 and 5 times a power of ten that divides the span into no more than so many steps.
double nice_step(double span, double most_steps);

// The multiples of the step within the range.
std::vector<double> ticks(const Range& range, double step);

// With as many decimals as the step has: 0.25 at a step of 0.05.
std::string tick_text(double value, double step);

// How many points stand between two labels of the X axis while so many are shown: every `label_every` if
// there is room for the labels, otherwise a multiple of it. When fewer than three labels would be left, the
// largest divisor of it with three or more; so the points that have a label always keep it.
std::size_t label_step(std::size_t label_every, double shown_points, double most_labels);

// The range after zooming by the factor (below 1: closer) about a position that stays where it is. It remains
// within the whole, and at least as wide as `smallest`.
Range zoomed(const Range& shown, const Range& whole, double factor, double about, double smallest);

// The range moved, as far as the whole allows.
Range moved(const Range& shown, const Range& whole, double by);

}  // namespace halden
