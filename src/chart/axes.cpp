#include "chart/axes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "chart/statistics.h"

namespace halden {

namespace {

constexpr double most_y_steps = 6;
constexpr double room_beside_bars = 0.7;  // in points, from the middle of the outermost bar
constexpr double fewest_labels = 3;

// A tick that rounding has put slightly outside of the range belongs to it.
constexpr double tick_tolerance = 1e-6;

// Beyond these a number is written with an exponent.
constexpr double largest_plain_value = 1e10;
constexpr double smallest_plain_step = 1e-9;
constexpr int digits_with_exponent = 6;

void include(Range& range, double value) {
  range.low = std::min(range.low, value);
  range.high = std::max(range.high, value);
}

// From the lowest to the highest value; without any, low is above high.
Range range_of_values(const Chart& chart) {
  Range range{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  for (const DataSet& set : chart.sets) {
    if (!set.points) continue;
    for (const double value : *set.points)
      if (!is_gap(value)) include(range, value);
  }
  return range;
}

// The deviation and the best fit reach beyond the values.
void include_statistics(Range& range, const Chart& chart) {
  const Range x = x_range(chart);
  for (const StatisticLine& line : statistic_lines(chart))
    for (const double end : {x.low, x.high}) include(range, line.at(end));
}

// Values that are all the same get a tenth of their magnitude on both sides.
Range with_a_span(Range range) {
  if (range.low == 0 && range.high == 0) return {0, 1};
  if (range.low < range.high) return range;
  const double room = std::abs(range.low) / 10;
  return {range.low - room, range.high + room};
}

Range automatic_y_range(const Chart& chart) {
  Range range = range_of_values(chart);
  if (range.low > range.high) return {0, 1};
  include_statistics(range, chart);
  const double distance_of_zero = std::max({range.low, -range.high, 0.0});
  if (chart.kind == ChartKind::bars || distance_of_zero <= range.span())
    range = {std::min(range.low, 0.0), std::max(range.high, 0.0)};
  range = with_a_span(range);
  const double step = nice_step(range.span(), most_y_steps);
  return {std::floor(range.low / step + tick_tolerance) * step,
          std::ceil(range.high / step - tick_tolerance) * step};
}

}  // namespace

ChartPart whole_of(const Chart& chart) { return {x_range(chart), y_range(chart)}; }

Range x_range(const Chart& chart) {
  const std::size_t count = std::max<std::size_t>(point_count(chart), 1);
  const double room = chart.kind == ChartKind::bars || count == 1 ? room_beside_bars : 0;
  return {-room, static_cast<double>(count - 1) + room};
}

Range x_reach(const Chart& chart) {
  const Range points = x_range(chart);
  return {points.low - chart.points_before, points.high + chart.points_after};
}

// A limit on the wrong side of the other one moves the other one, unless the user gave both: then they are
// exchanged.
Range y_range(const Chart& chart) {
  Range range = automatic_y_range(chart);
  if (chart.y_low && !is_gap(*chart.y_low)) range.low = *chart.y_low;
  if (chart.y_high && !is_gap(*chart.y_high)) range.high = *chart.y_high;
  if (range.low < range.high) return range;
  if (chart.y_low && chart.y_high && range.low > range.high) return {range.high, range.low};
  const double room = std::max(1.0, std::abs(range.low) / 10);
  return chart.y_low ? Range{range.low, range.low + room} : Range{range.high - room, range.high};
}

double nice_step(double span, double most_steps) {
  const double wanted = span / std::max(most_steps, 1.0);
  if (!(wanted > 0) || is_gap(wanted)) return 1;
  const double power = std::pow(10, std::floor(std::log10(wanted)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (wanted <= factor * power * (1 + tick_tolerance)) return factor * power;
  return 10 * power;
}

std::vector<double> ticks(const Range& range, double step) {
  std::vector<double> places;
  const double first = std::ceil(range.low / step - tick_tolerance);
  const double last = std::floor(range.high / step + tick_tolerance);
  constexpr double most_ticks = 1000;  // a step that is too small for the range would never end
  for (double k = first; k <= std::min(last, first + most_ticks); ++k) places.push_back(k * step + 0.0);
  return places;
}

std::string tick_text(double value, double step) {
  const bool is_plain = std::abs(value) < largest_plain_value && step > smallest_plain_step;
  const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + tick_tolerance)));
  char digits[64];
  char* const end = digits + sizeof digits;
  const auto result =
      is_plain ? std::to_chars(digits, end, value + 0.0, std::chars_format::fixed, decimals)
               : std::to_chars(digits, end, value, std::chars_format::general, digits_with_exponent);
  return std::string(digits, result.ptr);
}

std::size_t label_step(std::size_t label_every, double shown_points, double most_labels) {
  const std::size_t every = std::max<std::size_t>(label_every, 1);
  const double most = std::max(most_labels, 1.0);
  const auto labels_at = [shown_points](std::size_t step) {
    return shown_points / static_cast<double>(step);
  };
  const double multiples = std::ceil(labels_at(every) / most);
  if (multiples > 1) return every * static_cast<std::size_t>(multiples);
  std::size_t step = every;
  for (std::size_t divisor = every; divisor > 0 && labels_at(step) < fewest_labels; --divisor) {
    if (every % divisor != 0) continue;
    if (labels_at(divisor) > most) break;
    step = divisor;
  }
  return step;
}

Range zoomed(const Range& shown, const Range& whole, double factor, double about, double smallest) {
  const double wanted = std::clamp(shown.span() * factor, std::min(smallest, whole.span()), whole.span());
  const double low = about - (about - shown.low) * wanted / shown.span();
  return moved({low, low + wanted}, whole, 0);
}

Range moved(const Range& shown, const Range& whole, double by) {
  if (shown.span() >= whole.span()) return whole;
  const double low = std::clamp(shown.low + by, whole.low, whole.high - shown.span());
  return {low, low + shown.span()};
}

}  // namespace halden
