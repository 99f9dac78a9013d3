#include "chart/statistics.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace halden {

namespace {

bool shows_mean(Statistics shown) {
  return shown == Statistics::mean || shown == Statistics::mean_and_min_max ||
         shown == Statistics::deviation_and_mean || shown == Statistics::deviation_min_max_and_mean;
}

bool shows_extremes(Statistics shown) {
  return shown == Statistics::min_max || shown == Statistics::mean_and_min_max ||
         shown == Statistics::deviation_and_min_max || shown == Statistics::deviation_min_max_and_mean;
}

bool shows_deviation(Statistics shown) {
  return shown >= Statistics::deviation && shown <= Statistics::deviation_min_max_and_mean;
}

StatisticLine level(StatisticKind kind, const std::string& name, double value) {
  return {kind, value, 0, name + " " + short_number(value)};
}

StatisticLine best_fit(const std::string& name, const Summary& summary, std::size_t count) {
  StatisticLine line{StatisticKind::best_fit, summary.fit_offset, summary.fit_slope, {}};
  line.text = name + " " + short_number(line.at(0)) + " \u2192 " +
              short_number(line.at(static_cast<double>(count - 1)));
  return line;
}

// Sums of the points that are no gaps.
struct Sums {
  double count = 0;
  double x = 0;
  double y = 0;
};

Sums sums_of(const std::vector<double>& points) {
  Sums sums;
  for (std::size_t k = 0; k < points.size(); ++k) {
    if (is_gap(points[k])) continue;
    sums.count += 1;
    sums.x += static_cast<double>(k);
    sums.y += points[k];
  }
  return sums;
}

}  // namespace

std::string short_number(double value) {
  constexpr int significant_digits = 5;
  constexpr double largest = 1e15, smallest = 1e-9;  // beyond these a number of digits says nothing
  char digits[64];
  if (std::abs(value) < smallest) value = 0;
  if (!(std::abs(value) < largest))
    return {digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general,
                                  significant_digits)
                        .ptr};
  const int before_point = value == 0 ? 1 : static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
  const int decimals = std::max(significant_digits - before_point, 0);
  char* end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
  if (decimals > 0) {
    while (end[-1] == '0') --end;
    if (end[-1] == '.') --end;
  }
  return {digits, end};
}

// In two passes: sums of squares about the means do not lose the digits that sums of plain squares would.
std::optional<Summary> summarise(const std::vector<double>& points) {
  const Sums sums = sums_of(points);
  if (sums.count == 0) return std::nullopt;
  const double middle = sums.x / sums.count;
  Summary summary{sums.y / sums.count, std::numeric_limits<double>::max(),
                  std::numeric_limits<double>::lowest()};
  double xx = 0, xy = 0, yy = 0;
  for (std::size_t k = 0; k < points.size(); ++k) {
    if (is_gap(points[k])) continue;
    const double x = static_cast<double>(k) - middle;
    const double y = points[k] - summary.mean;
    xx += x * x;
    xy += x * y;
    yy += y * y;
    summary.minimum = std::min(summary.minimum, points[k]);
    summary.maximum = std::max(summary.maximum, points[k]);
  }
  if (summary.minimum == summary.maximum)  // the mean may differ from them by a rounding error
    return Summary{summary.minimum, summary.minimum, summary.maximum, 0, summary.minimum, 0};
  summary.deviation = std::sqrt(yy / sums.count);
  summary.fit_slope = xx > 0 ? xy / xx : 0;
  summary.fit_offset = summary.mean - summary.fit_slope * middle;
  return summary;
}

std::vector<StatisticLine> statistic_lines(const Chart& chart) {
  if (chart.statistics == Statistics::none || chart.sets.empty() || !chart.sets[0].points) return {};
  const std::optional<Summary> summary = summarise(*chart.sets[0].points);
  if (!summary) return {};
  const StatisticNames& names = chart.statistic_names;
  std::vector<StatisticLine> lines;
  if (shows_mean(chart.statistics)) lines.push_back(level(StatisticKind::mean, names.mean, summary->mean));
  if (shows_extremes(chart.statistics)) {
    lines.push_back(level(StatisticKind::extreme, names.minimum, summary->minimum));
    lines.push_back(level(StatisticKind::extreme, names.maximum, summary->maximum));
  }
  if (shows_deviation(chart.statistics)) {
    lines.push_back(level(StatisticKind::deviation, names.above, summary->mean + summary->deviation));
    lines.push_back(level(StatisticKind::deviation, names.below, summary->mean - summary->deviation));
  }
  if (chart.statistics == Statistics::best_fit)
    lines.push_back(best_fit(names.best_fit, *summary, chart.sets[0].points->size()));
  return lines;
}

}  // namespace halden
