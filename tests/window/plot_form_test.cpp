// The window of the power plot as widgets.
#include <gtest/gtest.h>

#include <QApplication>
#include <QWheelEvent>

#include "chart/chart.h"
#include "chart/ui/chart_view.h"
#include "filetools/power_plot/plot_form.h"
#include "filetools/power_plot/ui/plot_form_design.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct PlotForm : FormTest {
  PlotForm() : FormTest(make_plot_window(), plot_form_design()) {}

  void show(const std::string& y_title, std::vector<double> points) {
    Chart chart;
    chart.y_title = y_title;
    chart.grid = Grid::none;
    if (!points.empty()) chart.sets = {{make_points(std::move(points)), "", 0}};
    values.set_chart(plot_chart, std::make_shared<const Chart>(std::move(chart)));
    form.show_changes();
  }

  ChartView* chart() { return form.findChild<ChartView*>(); }
};

TEST_F(PlotForm, WhatHasTheFocusHasANameAlsoWithoutTitles) {
  show("", {});
  EXPECT_EQ(nameless_in_focus(form), "");
  EXPECT_EQ(spoken(form, chart()), "Chart: ");
  show("V1 (V)", {1, 2});
  EXPECT_TRUE(spoken(form, chart()).starts_with("V1 (V)"));
}

// The line rises at the left end of the chart and nowhere else: zoomed to the right, nothing of it is above
// the axis. The print showed the whole.
TEST_F(PlotForm, ThePrintShowsThePartOnTheScreen) {
  std::vector<double> step(1000, 0.0);
  for (std::size_t k = 0; k < 400; ++k) step[k] = 9;
  show("V1 (V)", std::move(step));
  const auto high_pixels = [this] {
    const QImage paper = form.paper_image();
    const QPointF at = chart()->mapTo(&form, chart()->to_pixels(chart()->shown().x.low, 9).toPoint());
    int count = 0;
    for (int x = static_cast<int>(at.x()) + 2; x < paper.width() / 2; ++x)
      for (int y = -60; y < 60; ++y)
        if (paper.valid(x, static_cast<int>(at.y()) + y) &&
            paper.pixelColor(x, static_cast<int>(at.y()) + y) == theme(Look::paper).phase[0])
          ++count;
    return count;
  };
  EXPECT_GT(high_pixels(), 50);
  const QPointF at = chart()->to_pixels(800, 5);
  QWheelEvent turn(at, at, {}, {0, 120 * 6}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(chart(), &turn);
  ASSERT_GT(chart()->shown().x.low, 400);
  EXPECT_EQ(high_pixels(), 0);
}

TEST_F(PlotForm, TheLineAboutTheFileIsWholeAt640Pixels) {
  values.set_text(
      plot_about,
      "20261123_recording_of_the_plant.csv · 3P4W · CT 100 · VT 10 · 72000 records · 5 lost · 11-22-2026 "
      "08:15:02 to 11-24-2026 00:15:00");
  resize(640, 440);
  const QWidget* const line = widget(plot_about);
  EXPECT_GE(line->height(), line->heightForWidth(line->width()));
  EXPECT_EQ(form.width(), 640);
}

}  // namespace
}  // namespace halden
