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

// It showed the whole.
TEST_F(PlotForm, ThePrintShowsThePartOnTheScreen) {
  show("V1 (V)", {1, 2, 3, 9, 3, 2, 1, 0, 1, 2});
  const QImage whole = form.paper_image();
  const QPointF at = chart()->to_pixels(8, 1);
  QWheelEvent turn(at, at, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(chart(), &turn);
  EXPECT_NE(form.paper_image(), whole);
}

}  // namespace
}  // namespace halden
