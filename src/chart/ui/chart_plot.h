// Draws a chart with QCustomPlot, on the screen or onto any painter. It knows nothing of the mouse: what is
// shown and where the cursor stands is told to it.
#pragma once

#include <QSharedPointer>
#include <QSize>
#include <cstddef>
#include <optional>

#include "chart/axes.h"
#include "chart/chart.h"
#include "chart/ui/chart_sets.h"
#include "chart/ui/custom_plot.h"
#include "screen/ui/theme.h"

namespace halden {

class ChartPlot : public QCustomPlot {
 public:
  // In the colours of the theme, unless the chart is black-and-white.
  ChartPlot(const Theme& theme, QWidget* parent);

  void set_chart(const Chart& chart);

  // Fills in the points of this part for a drawing of this size. Only then may it be drawn.
  void show_part(const ChartPart& part, QSize size);

  // The dotted line and the readout at a point, without drawing the rest again. The chart must have been
  // drawn in its present size.
  void show_cursor(std::optional<std::size_t> point);

  // The range over which the user drags.
  void show_selection(const std::optional<Range>& x);

 private:
  void build_layout();
  void build_cursor();
  void apply_theme();
  void style_axis(QCPAxis& axis, bool has_grid);
  void place_x_ticks(int width);
  void place_y_ticks(int height);
  void show_titles(int width);
  void arrange_legend(int width);
  double left_of_readout(const QString& says, double line) const;

  Theme screen_theme_;
  Theme theme_;  // that of the screen, or black and white
  Chart chart_;
  ChartPart part_;
  QCPTextElement* title_;
  QCPTextElement* y_title_;
  QCPLayoutGrid* header_;
  QCPItemText* hint_;
  QCPItemStraightLine* cursor_line_;
  QCPItemText* readout_;
  QCPItemRect* selection_;
  QSharedPointer<QCPAxisTickerText> x_ticks_;
  QSharedPointer<QCPAxisTickerText> y_ticks_;
  ChartSets sets_;
};

}  // namespace halden
