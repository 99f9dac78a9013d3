#include "chart/thinning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace halden {

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

// Neither in the middle nor at the edge: rounding to pixels would leave out a column now and then.
constexpr double place_in_column = 0.25;

DrawnPoint at(const std::vector<double>& points, std::size_t index) {
  return {static_cast<double>(index), is_gap(points[index]) ? gap : points[index]};
}

// Appends the smallest and the largest of the points from first to before end, at one position: the vertical
// line between them covers the column wherever in it they stand. The one nearer to the point before comes
// first, so that no long line leads from column to column.
void append_extremes(std::vector<DrawnPoint>& drawn, const std::vector<double>& points, std::size_t first,
                     std::size_t end, double position) {
  double smallest = gap, largest = gap;
  for (std::size_t k = first; k < end; ++k) {
    if (is_gap(points[k])) continue;
    if (!(points[k] >= smallest)) smallest = points[k];
    if (!(points[k] <= largest)) largest = points[k];
  }
  const double before = drawn.empty() ? gap : drawn.back().y;
  if (before - smallest > largest - before) std::swap(smallest, largest);
  drawn.push_back({position, smallest});
  if (smallest != largest && !std::isnan(smallest)) drawn.push_back({position, largest});
}

// A position as the index of a point, within the row.
std::size_t to_index(double position, std::size_t count) {
  return static_cast<std::size_t>(std::clamp(position, 0.0, static_cast<double>(count - 1)));
}

// The value of the line through the points; a gap beyond its ends and beside a gap.
double value_at(const std::vector<double>& points, double x) {
  if (!(x >= 0 && x <= static_cast<double>(points.size()) - 1)) return gap;
  const auto before = static_cast<std::size_t>(x);
  const double part = x - std::floor(x);
  const double value = at(points, before).y;
  return part == 0 ? value : value + part * (at(points, before + 1).y - value);
}

bool has_value(const Chart& chart, std::size_t index) {
  return std::any_of(chart.sets.begin(), chart.sets.end(), [index](const DataSet& set) {
    return set.points && index < set.points->size() && !is_gap((*set.points)[index]);
  });
}

}  // namespace

std::vector<DrawnPoint> drawn_points(const std::vector<double>& points, const Range& x, std::size_t columns) {
  std::vector<DrawnPoint> drawn;
  if (points.empty()) return drawn;
  const std::size_t first = to_index(std::floor(x.low) - 1, points.size());
  const std::size_t last = to_index(std::ceil(x.high) + 1, points.size());
  if (last - first < 2 * columns) {
    for (std::size_t k = first; k <= last; ++k) drawn.push_back(at(points, k));
    return drawn;
  }
  const double column = x.span() / static_cast<double>(std::max<std::size_t>(columns, 1));
  const auto start_of = [&](std::size_t k) {
    return to_index(std::ceil(x.low + static_cast<double>(k) * column), points.size() + 1);
  };
  drawn.reserve(2 * columns + 2);
  if (static_cast<double>(first) <= x.low) drawn.push_back(at(points, first));
  for (std::size_t k = 0; k < columns; ++k)
    append_extremes(drawn, points, start_of(k), start_of(k + 1),
                    x.low + (static_cast<double>(k) + place_in_column) * column);
  if (static_cast<double>(last) >= x.high) drawn.push_back(at(points, last));
  return drawn;
}

std::vector<DrawnPoint> lone_points(const std::vector<DrawnPoint>& drawn) {
  std::vector<DrawnPoint> lone;
  const auto ends_at = [&drawn](std::size_t k) { return k >= drawn.size() || is_gap(drawn[k].y); };
  for (std::size_t k = 0; k < drawn.size(); ++k)
    if (!ends_at(k) && (k == 0 || ends_at(k - 1)) && ends_at(k + 1)) lone.push_back(drawn[k]);
  return lone;
}

std::vector<DrawnPoint> band_points(const std::vector<double>& one, const std::vector<double>& other,
                                    const Range& x, std::size_t columns) {
  std::vector<DrawnPoint> drawn;
  drawn.reserve(2 * columns);
  for (std::size_t k = 0; k < columns; ++k) {
    const double position =
        x.low + (static_cast<double>(k) + place_in_column) * x.span() / static_cast<double>(columns);
    const DrawnPoint a{position, value_at(one, position)}, b{position, value_at(other, position)};
    drawn.push_back(k % 2 == 0 ? a : b);
    drawn.push_back(k % 2 == 0 ? b : a);
  }
  return drawn;
}

std::optional<std::size_t> nearest_point(const Chart& chart, double x) {
  const std::size_t count = point_count(chart);
  if (count == 0 || std::isnan(x)) return std::nullopt;
  // Halves go to the earlier point.
  const std::size_t nearest = to_index(std::ceil(x - 0.5), count);
  for (std::size_t distance = 0; distance < count; ++distance) {
    if (distance <= nearest && has_value(chart, nearest - distance)) return nearest - distance;
    if (nearest + distance < count && has_value(chart, nearest + distance)) return nearest + distance;
  }
  return std::nullopt;
}

}  // namespace halden
