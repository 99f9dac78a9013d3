#include <QImage>
#include <QWheelEvent>

#include "chart/ui/chart_view.h"
#include "filetools/power_plot/plot_form.h"
#include "filetools/power_plot/ui/plot_form_design.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct PlotFormTest : FormTest {
  PlotFormTest() : FormTest(make_plot_window(), plot_form_design()) {}

  ChartView& view() { return *form.findChild<ChartView*>(); }

  void draw(Chart chart) {
    values.set_chart(plot_chart, std::make_shared<const Chart>(std::move(chart)));
    form.show_changes();
  }

  // Of one point in the middle.
  static Chart peak() {
    Chart chart;
    std::vector<double> values(1001, 0.0);
    values[500] = 1;
    chart.y_title = "V1";
    chart.sets = {{make_points(std::move(values)), "", {}}};
    return chart;
  }

  void turn_wheel(Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPointF middle = QRectF(view().rect()).center();
    QWheelEvent wheel(middle, view().mapToGlobal(middle), QPoint(), QPoint(0, 1200), Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view(), &wheel);
  }
};

TEST_F(PlotFormTest, EverythingInFocusHasANameAlsoTheEmptyChart) {
  EXPECT_EQ(nameless_in_focus(form), "");
  draw(peak());
  Chart untitled = peak();
  untitled.y_title.clear();
  draw(untitled);
  EXPECT_EQ(nameless_in_focus(form), "");
}

// The print showed the whole chart whatever the screen showed.
TEST_F(PlotFormTest, ThePrintShowsThePartOnTheScreen) {
  draw(peak());
  form.resize(800, 600);
  const QImage whole = form.paper_image();
  turn_wheel();
  EXPECT_GT(view().shown().x.low, 300);
  EXPECT_NE(form.paper_image(), whole);
}

TEST_F(PlotFormTest, LimitsAndAnotherFileEndTheZoom) {
  Chart chart = peak();
  chart.subject = "a.csv";
  draw(chart);
  turn_wheel();
  turn_wheel(Qt::ControlModifier);
  const Range x = view().shown().x;
  chart.x_title = "Site 3";
  chart.y_high = 5;
  draw(chart);
  EXPECT_EQ(view().shown().x, x) << "of the same points";
  EXPECT_EQ(view().shown().y.high, 5);
  chart.subject = "b.csv";
  draw(chart);
  EXPECT_EQ(view().shown().x, (Range{0, 1000}));
}

}  // namespace
}  // namespace halden
