// The data sets of a chart and its statistics as graphs and bars of a plot.
#pragma once

#include <QColor>
#include <QSize>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "chart/axes.h"
#include "chart/chart.h"
#include "chart/thinning.h"
#include "chart/ui/custom_plot.h"
#include "screen/ui/theme.h"

namespace halden {

class ChartSets {
 public:
  explicit ChartSets(QCustomPlot& plot) : plot_(plot) {}

  // Replaces what the plot draws, still without points, and its legend: names of the sets where there are
  // two, and the figures of the statistics. In black and white the theme has no colours.
  void set_chart(const Chart& chart, const Theme& theme);

  // The points within the part, which is as large as so many pixels.
  void fill(const ChartPart& part, QSize size);

 private:
  // A graph, or bars of which one may be marked.
  struct Drawn {
    Points points;
    QColor colour;
    QCPGraph* line = nullptr;
    QCPGraph* discs = nullptr;  // single points, to which no line leads
    QCPBars* bars = nullptr;
    QCPBars* marked_bar = nullptr;
    double offset = 0;  // of its bars, in points
  };

  void add_set(const Chart& chart, std::size_t index, const Theme& theme);
  void add_band(const QColor& colour);
  void add_bars(Drawn& set, double place, const Theme& theme);
  void add_flags(const PointFlags& flags, const QColor& colour);
  void add_statistics(const Chart& chart, const QColor& colour);
  void fill_line(const Drawn& set, const Range& x, int width);
  void fill_flags(const ChartPart& part, QSize size);
  void fill_bars(const Drawn& set, const Range& x, int width);
  std::size_t columns_of(int width) const;

  QCustomPlot& plot_;
  std::vector<Drawn> sets_;
  QCPGraph* band_ = nullptr;  // between two lines
  QCPGraph* flags_ = nullptr;
  std::shared_ptr<const std::vector<std::size_t>> flagged_;
  std::optional<std::size_t> marked_;
};

}  // namespace halden
