#include "chart/ui/chart_sets.h"

#include <algorithm>
#include <cmath>

#include "chart/statistics.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

// The part of the room between two points that bars take.
constexpr double bars_part = 0.66;

// Of the colour of the first line in the area between two lines.
constexpr double band_part = 0.15;

// In pixels.
constexpr int disc = 5;
constexpr int flag_width = 8;  // and height

// In pixels: drawn, not drawn, and so on. Flat ends, because square ones would close the gaps on paper.
QPen pen_of(StatisticKind kind, const QColor& colour) {
  QPen pen(colour, 1, Qt::SolidLine, Qt::FlatCap);
  if (kind == StatisticKind::mean) pen.setDashPattern({8, 4});
  if (kind == StatisticKind::extreme) pen.setDashPattern({2, 3});
  if (kind == StatisticKind::deviation) pen.setDashPattern({8, 3, 2, 3});
  return pen;
}

QColor colour_of(const DataSet& set, std::size_t index, const Theme& theme) {
  if (index > 0 && theme.phase[0] == theme.accent) return theme.quiet;  // black and white
  if (set.phase && *set.phase < theme.phase.size()) return theme.phase[*set.phase];
  return index == 0 ? theme.accent : theme.quiet;
}

// Bars of no phase have the accent colour themselves, and that of the third phase is a blue too.
QColor colour_of_marked_bar(const QColor& others, const Theme& theme) {
  constexpr int hue_distance = 30;
  if (others == theme.text) return theme.quiet;  // black and white
  return std::abs(others.hue() - theme.accent.hue()) < hue_distance ? theme.text : theme.accent;
}

QCPBars* make_bars(QCustomPlot& plot, const QColor& colour) {
  auto* const bars = new QCPBars(plot.xAxis, plot.yAxis);
  bars->setWidthType(QCPBars::wtAbsolute);
  bars->setPen(Qt::NoPen);
  bars->setBrush(colour);
  return bars;
}

QColor mix(const QColor& colour, double part, const QColor& ground) {
  const auto channel = [part](int a, int b) {
    return static_cast<int>(std::lround(a * part + b * (1 - part)));
  };
  return QColor(channel(colour.red(), ground.red()), channel(colour.green(), ground.green()),
                channel(colour.blue(), ground.blue()));
}

QVector<QCPGraphData> to_graph(const std::vector<DrawnPoint>& points) {
  QVector<QCPGraphData> data;
  data.reserve(static_cast<int>(points.size()));
  for (const DrawnPoint& point : points) data.append({point.x, point.y});
  return data;
}

// Its points are thinned already.
QCPGraph* make_line(QCustomPlot& plot) {
  QCPGraph* const line = plot.addGraph();
  line->setAdaptiveSampling(false);
  return line;
}

QCPGraph* make_discs(QCustomPlot& plot, const QColor& colour) {
  QCPGraph* const discs = make_line(plot);
  discs->setLineStyle(QCPGraph::lsNone);
  discs->setScatterStyle({QCPScatterStyle::ssDisc, colour, disc});
  return discs;
}

// Its tip points down to the place: a sign in the middle of it would be cut off at the lower end of the axis.
QCPScatterStyle flag_style(const QColor& colour) {
  QPainterPath triangle;
  triangle.lineTo(-flag_width / 2.0, -flag_width);
  triangle.lineTo(flag_width / 2.0, -flag_width);
  triangle.closeSubpath();
  constexpr double unscaled_size = 6;  // the size at which QCustomPlot draws a path as it is
  return {triangle, colour, colour, unscaled_size};
}

void add_to_legend(QCPAbstractPlottable& drawn, const std::string& name) {
  drawn.setName(to_qt(name));
  drawn.addToLegend();
}

}  // namespace

void ChartSets::set_chart(const Chart& chart, const Theme& theme) {
  plot_.clearPlottables();
  sets_.clear();
  band_ = nullptr;
  flags_ = nullptr;
  marked_ = chart.marked;
  if (chart.kind == ChartKind::line && chart.sets.size() == 2 && chart.colours == ChartColours::colour)
    add_band(mix(colour_of(chart.sets[0], 0, theme), band_part, theme.panel));
  for (std::size_t index = 0; index < chart.sets.size(); ++index)
    if (chart.sets[index].points) add_set(chart, index, theme);
  if (chart.kind == ChartKind::line && chart.flags.points) add_flags(chart.flags, theme.warning);
  add_statistics(chart, theme.text);
}

void ChartSets::add_set(const Chart& chart, std::size_t index, const Theme& theme) {
  const DataSet& shown = chart.sets[index];
  const auto count = static_cast<double>(chart.sets.size());
  Drawn set{shown.points, colour_of(shown, index, theme)};
  if (chart.kind == ChartKind::bars) {
    add_bars(set, (static_cast<double>(index) - (count - 1) / 2) / count, theme);
  } else {
    set.line = make_line(plot_);
    set.discs = make_discs(plot_, set.colour);
  }
  sets_.push_back(set);
  if (chart.sets.size() < 2) return;
  set.bars != nullptr ? add_to_legend(*set.bars, shown.name) : add_to_legend(*set.line, shown.name);
}

// Two lines are the largest and the smallest values of the same thing; the area between them is light.
void ChartSets::add_band(const QColor& colour) {
  band_ = make_line(plot_);
  band_->setPen(QPen(colour, 0));
  band_->setAntialiased(false);
}

void ChartSets::add_bars(Drawn& set, double place, const Theme& theme) {
  set.offset = place * bars_part;
  set.bars = make_bars(plot_, set.colour);
  set.marked_bar = make_bars(plot_, colour_of_marked_bar(set.colour, theme));
}

void ChartSets::add_flags(const PointFlags& flags, const QColor& colour) {
  flagged_ = flags.points;
  if (flagged_->empty() || sets_.empty()) return;
  flags_ = make_line(plot_);
  flags_->setLineStyle(QCPGraph::lsNone);
  flags_->setScatterStyle(flag_style(colour));
  flags_->setAntialiasedScatters(false);
  add_to_legend(*flags_, flags.name);
}

// From one end of the axis to the other.
void ChartSets::add_statistics(const Chart& chart, const QColor& colour) {
  const Range x = x_range(chart);
  for (const StatisticLine& line : statistic_lines(chart)) {
    QCPGraph* const graph = plot_.addGraph();
    graph->setPen(pen_of(line.kind, colour));
    graph->setAntialiased(line.kind == StatisticKind::best_fit);
    graph->setData({x.low, x.high}, {line.at(x.low), line.at(x.high)}, true);
    add_to_legend(*graph, line.text);
  }
}

void ChartSets::fill(const ChartPart& part, QSize size) {
  const Range& x = part.x;
  const int width = size.width();
  for (const Drawn& set : sets_) set.bars != nullptr ? fill_bars(set, x, width) : fill_line(set, x, width);
  if (flags_ != nullptr) fill_flags(part, size);
  if (band_ == nullptr || sets_.size() < 2) return;
  const auto points = band_points(*sets_[0].points, *sets_[1].points, x, columns_of(width));
  band_->data()->set(to_graph(points), true);
}

std::size_t ChartSets::columns_of(int width) const {
  return static_cast<std::size_t>(std::max(1.0, width * plot_.bufferDevicePixelRatio()));
}

// Dense lines are drawn with the thinnest pen and without antialiasing: wider ones take many times as long.
void ChartSets::fill_line(const Drawn& set, const Range& x, int width) {
  const std::vector<DrawnPoint> points = drawn_points(*set.points, x, columns_of(width));
  set.line->data()->set(to_graph(points), true);
  const bool dense = points.size() > static_cast<std::size_t>(std::max(width, 0));
  set.line->setPen(QPen(set.colour, dense ? 0 : 1));
  set.line->setAntialiased(!dense);
  set.discs->data()->set(to_graph(lone_points(points)), true);
}

// A flag that would cover the one before it is left out. One whose point is above or below the part shown
// stands at its edge.
void ChartSets::fill_flags(const ChartPart& part, QSize size) {
  const Range& x = part.x;
  const std::vector<double>& values = *sets_.back().points;
  const double distance = flag_width * x.span() / std::max(size.width(), 1);
  const double height = std::min(flag_width * part.y.span() / std::max(size.height(), 1), part.y.span());
  QVector<QCPGraphData> data;
  for (const std::size_t point : *flagged_) {
    const auto place = static_cast<double>(point);
    if (point >= values.size() || is_gap(values[point]) || place < x.low || place > x.high) continue;
    if (data.isEmpty() || place - data.back().key >= distance)
      data.append({place, std::clamp(values[point], part.y.low, part.y.high - height)});
  }
  flags_->data()->set(data, true);
}

// All bars have the same whole number of pixels.
void ChartSets::fill_bars(const Drawn& set, const Range& x, int width) {
  const double room = width / x.span() * bars_part / static_cast<double>(sets_.size());
  QVector<QCPBarsData> data, marked;
  for (const DrawnPoint& point : drawn_points(*set.points, x, columns_of(width))) {
    if (std::isnan(point.y)) continue;
    const bool is_marked = marked_ && point.x == static_cast<double>(*marked_);
    (is_marked ? marked : data).append({point.x + set.offset, point.y});
  }
  for (QCPBars* const bars : {set.bars, set.marked_bar}) bars->setWidth(std::max(1.0, std::floor(room)));
  set.bars->data()->set(data, true);
  set.marked_bar->data()->set(marked, true);
}

}  // namespace halden
