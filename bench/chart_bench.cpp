// One redraw of a chart of 1100 x 470 pixels with new data, as at each frame of a live view: from the value
// to the painted widget.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>
#include <cmath>
#include <string>

#include "chart/ui/chart_view.h"

namespace halden {
namespace {

Chart chart_of(ChartKind kind, std::size_t count) {
  std::vector<double> values(count);
  for (std::size_t k = 0; k < count; ++k) {
    const auto x = static_cast<double>(k);
    values[k] = 325 * std::sin(x * 0.0123) + 20 * std::sin(x * x);
  }
  Chart chart;
  chart.kind = kind;
  chart.grid = Grid::both;
  chart.y_title = "V1";
  chart.sets = {{make_points(std::move(values)), "V1", 0}};
  chart.label_every = count / 8;
  chart.labels = texts_by([](std::size_t index) { return std::to_string(index); });
  return chart;
}

void redraw(benchmark::State& state, const Chart& chart) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int no_arguments = 0;
  const QApplication application(no_arguments, nullptr);
  ChartView view(theme(Look::light), nullptr);
  view.resize(1100, 470);
  QPixmap picture(view.size());
  for (auto _ : state) {
    view.set_chart(std::make_shared<const Chart>(chart));
    view.render(&picture);
  }
}

void redraw_1024_points(benchmark::State& state) { redraw(state, chart_of(ChartKind::line, 1024)); }
void redraw_100_bars(benchmark::State& state) { redraw(state, chart_of(ChartKind::bars, 100)); }
void redraw_an_envelope_of_1800_points(benchmark::State& state) {
  Chart chart = chart_of(ChartKind::line, 1800);
  std::vector<double> lower = *chart.sets[0].points;
  for (double& value : lower) value -= 30;
  chart.sets.push_back({make_points(std::move(lower)), "", 0});
  redraw(state, chart);
}
void redraw_100000_points(benchmark::State& state) { redraw(state, chart_of(ChartKind::line, 100000)); }
void redraw_100000_points_and_statistics(benchmark::State& state) {
  Chart chart = chart_of(ChartKind::line, 100000);
  chart.statistics = Statistics::deviation_min_max_and_mean;
  redraw(state, chart);
}
BENCHMARK(redraw_1024_points)->Unit(benchmark::kMillisecond);
BENCHMARK(redraw_100_bars)->Unit(benchmark::kMillisecond);
BENCHMARK(redraw_an_envelope_of_1800_points)->Unit(benchmark::kMillisecond);
BENCHMARK(redraw_100000_points)->Unit(benchmark::kMillisecond);
BENCHMARK(redraw_100000_points_and_statistics)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace halden
