#include "filetools/power_plot/ui/plot_form_design.h"

#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>
#include <string>

#include "chart/ui/chart_view.h"
#include "filetools/power_plot/plot_form.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/fonts.h"
#include "screen/ui/menu_builder.h"
#include "screen/ui/progress_row.h"
#include "screen/ui/tool_page.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 720);
constexpr int line_pixels = 13;

// Closer to one another than in other windows: all have room in the smallest width.
constexpr const char* menu_bar_style = "QMenuBar::item { padding: 5px 6px; }";

void build_menu(FormWindow& form) {
  form.menuBar()->setStyleSheet(QLatin1String(menu_bar_style));
  build_menus(*form.menuBar(), plot_menu_entries(), form);
  for (const auto& [keys, control] : {std::pair{"Ctrl+O", "openfileforplot"}, std::pair{"F5", "read_again"},
                                      std::pair{"Ctrl+P", "Pgraphics"}})
    form.add_shortcut(keys, control);
  cancel_or_close_on_escape(form, plot_cancel);
}

// A line ends between two items only, never between a number and its unit.
QString in_items(std::string_view text) {
  constexpr QChar unbreakable(0x00A0);
  QString items = to_qt(text);
  items.replace(QLatin1Char(' '), unbreakable);
  return items.replace(QStringLiteral("·") + unbreakable, QStringLiteral("· "));
}

QLabel* build_line(std::string_view control, FormWindow& form) {
  auto* const label = new QLabel;
  label->setWordWrap(true);  // paper has no tooltip that could say the rest
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(with_pixel_size(text_font(), line_pixels));
  set_role(*label, Role::quiet);
  form.mirror().tie(std::string(control),
                    [label](const Control& now) { label->setText(in_items(now.text)); });
  return label;
}

QWidget* build_chart(FormWindow& form) {
  ChartView* const chart = tied_chart(plot_chart, form);
  chart->set_drag(ChartView::Drag::selects);
  QObject::connect(chart, &ChartView::view_settled, &form, [&form](int first, int last) {
    form.mirror().choose_range(std::string(plot_chart), first, last);
  });
  return chart;
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  const ToolPage page = build_tool_page(form, std::string(status_hint));
  page.column->addWidget(build_line(plot_about, form));
  page.column->addWidget(build_chart(form), 1);
  page.column->addWidget(build_line(plot_statistics, form));
  page.column->addWidget(build_line(plot_missing, form));
  page.column->addWidget(build_progress_row(form, {processing_panel, plot_progress, plot_cancel}));
  return page.content;
}

}  // namespace

FormDesign plot_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
