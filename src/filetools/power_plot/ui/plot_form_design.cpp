#include "filetools/power_plot/ui/plot_form_design.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <string>

#include "chart/ui/chart_view.h"
#include "filetools/power_plot/plot_form.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/bottom_row.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/ui/menu_builder.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 720);
constexpr int margin = 12;
constexpr int gap = 6;
constexpr int line_pixels = 13;
constexpr int processing_height = 34;
constexpr int bar_height = 6;

void build_menu(FormWindow& form) {
  build_menus(*form.menuBar(), plot_menu_entries(), form);
  for (const auto& [keys, control] : {std::pair{"Ctrl+O", "openfileforplot"}, std::pair{"F5", "read_again"},
                                      std::pair{"Ctrl+P", "Pgraphics"}})
    form.add_shortcut(keys, control);
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, [&form] {
    if (form.window()[plot_cancel].visible)
      form.click(std::string(plot_cancel));
    else
      form.close();
  });
}

// The text, how far the file has been read, and Cancel.
QWidget* build_processing(FormWindow& form) {
  auto* const row = new QWidget;
  row->setFixedHeight(processing_height);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  auto* const text = new QLabel;
  text->setFont(with_pixel_size(text_font(), line_pixels));
  form.mirror().tie(std::string(processing_panel), *text);
  auto* const bar = new QProgressBar;
  bar->setTextVisible(false);
  bar->setFixedHeight(bar_height);
  form.mirror().tie(std::string(plot_progress), *bar);
  auto* const cancel = new QPushButton;
  cancel->setFont(with_pixel_size(text_font(), line_pixels));
  form.tie_button(std::string(plot_cancel), *cancel);
  line->addWidget(text);
  line->addWidget(bar, 1);
  line->addWidget(cancel);
  form.keep_off_paper(*row);
  return row;
}

QLabel* build_line(std::string_view control, FormWindow& form) {
  auto* const label = new ElidedLabel(0);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(with_pixel_size(text_font(), line_pixels));
  form.mirror().tie(std::string(control), *label);
  return label;
}

QWidget* build_chart(FormWindow& form) {
  auto* const chart = new ChartView(form.theme(), &form);
  chart->setObjectName(to_qt(plot_chart));
  chart->print_as_shown(form);
  form.mirror().tie(std::string(plot_chart), [chart](const Control& now) {
    chart->set_chart(now.chart);
    if (chart->accessibleName().isEmpty()) chart->setAccessibleName(to_qt(now.accessible_name));
  });
  return chart;
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  auto* const central = new QWidget(&form);
  auto* const outer = new QVBoxLayout(central);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* const column = new QVBoxLayout;
  column->setContentsMargins(margin, gap, margin, gap);
  column->setSpacing(gap);
  column->addWidget(build_line(plot_about, form));
  column->addWidget(build_chart(form), 1);
  column->addWidget(build_line(plot_statistics, form));
  column->addWidget(build_line(plot_missing, form));
  column->addWidget(build_processing(form));
  outer->addLayout(column, 1);
  auto* const bottom = new BottomRow(form.theme());
  bottom->add_field(std::string(status_hint), form.mirror(), 0, 1);
  form.keep_off_paper(*bottom);
  outer->addWidget(bottom);
  return central;
}

}  // namespace

FormDesign plot_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
