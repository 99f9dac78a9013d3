// Figures of a row of points, and the lines a chart draws for them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/chart.h"

namespace halden {

// Of the points that are no gaps. The deviation is that of the points themselves, divided by their number;
// the best fit is the line with the least squared distances over the points' index.
struct Summary {
  double mean = 0;
  double minimum = 0;
  double maximum = 0;
  double deviation = 0;
  double fit_offset = 0;  // the best-fit line is fit_offset + fit_slope * index
  double fit_slope = 0;

  double largest() const;  // magnitude
};

// Nothing when every point is a gap.
std::optional<Summary> summarise(const std::vector<double>& points);

enum class StatisticKind { mean, extreme, deviation, best_fit };

// A straight line across the whole chart.
struct StatisticLine {
  StatisticKind kind;
  double offset;
  double slope;
  std::string text;  // for the legend: its name and value

  double at(double x) const { return offset + slope * x; }
};

// What chart.statistics asks for, of the first data set.
std::vector<StatisticLine> statistic_lines(const Chart& chart);

}  // namespace halden
