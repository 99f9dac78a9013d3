#include "chart/statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/number_text.h"

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

StatisticLine level(StatisticKind kind, const std::string& name, double value, const Summary& summary) {
  return {kind, value, 0, name + " " + short_number(value, summary.largest())};
}

StatisticLine best_fit(const std::string& name, const Summary& summary, std::size_t count) {
  StatisticLine line{StatisticKind::best_fit, summary.fit_offset, summary.fit_slope, {}};
  const double last = line.at(static_cast<double>(count - 1));
  line.text = name + " " + short_number(line.at(0), summary.largest()) + " \u2192 " +
              short_number(last, summary.largest());
  return line;
}

// Sums of the points that are no gaps. Values count from the first one: the sums of equal values have no
// rounding error then.
struct Sums {
  double count = 0;
  double origin = 0;
  double x = 0;
  double y = 0;
};

Sums sums_of(const std::vector<double>& points) {
  Sums sums;
  for (std::size_t k = 0; k < points.size(); ++k) {
    if (is_gap(points[k])) continue;
    if (sums.count == 0) sums.origin = points[k];
    sums.count += 1;
    sums.x += static_cast<double>(k);
    sums.y += points[k] - sums.origin;
  }
  return sums;
}

}  // namespace

double Summary::largest() const { return std::max(std::abs(minimum), std::abs(maximum)); }

// In two passes: sums of squares about the means do not lose the digits that sums of plain squares would.
std::optional<Summary> summarise(const std::vector<double>& points) {
  const Sums sums = sums_of(points);
  if (sums.count == 0) return std::nullopt;
  const double middle = sums.x / sums.count;
  const double mean = sums.y / sums.count;  // counted from the origin
  Summary summary{sums.origin + mean, std::numeric_limits<double>::max(),
                  std::numeric_limits<double>::lowest()};
  double xx = 0, xy = 0, yy = 0;
  for (std::size_t k = 0; k < points.size(); ++k) {
    if (is_gap(points[k])) continue;
    const double x = static_cast<double>(k) - middle;
    const double y = points[k] - sums.origin - mean;
    xx += x * x;
    xy += x * y;
    yy += y * y;
    summary.minimum = std::min(summary.minimum, points[k]);
    summary.maximum = std::max(summary.maximum, points[k]);
  }
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
  if (shows_mean(chart.statistics))
    lines.push_back(level(StatisticKind::mean, names.mean, summary->mean, *summary));
  if (shows_extremes(chart.statistics)) {
    lines.push_back(level(StatisticKind::extreme, names.minimum, summary->minimum, *summary));
    lines.push_back(level(StatisticKind::extreme, names.maximum, summary->maximum, *summary));
  }
  if (shows_deviation(chart.statistics)) {
    lines.push_back(
        level(StatisticKind::deviation, names.above, summary->mean + summary->deviation, *summary));
    lines.push_back(
        level(StatisticKind::deviation, names.below, summary->mean - summary->deviation, *summary));
  }
  if (chart.statistics == Statistics::best_fit)
    lines.push_back(best_fit(names.best_fit, *summary, chart.sets[0].points->size()));
  return lines;
}

}  // namespace halden
