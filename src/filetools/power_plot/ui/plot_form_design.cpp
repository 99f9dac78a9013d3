#include "filetools/power_plot/ui/plot_form_design.h"

#include <QMenuBar>
#include <QVBoxLayout>
#include <string>

#include "chart/ui/chart_view.h"
#include "filetools/power_plot/plot_form.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/menu_builder.h"
#include "screen/ui/progress_row.h"
#include "screen/ui/tool_page.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 720);

void build_menu(FormWindow& form) {
  build_menus(*form.menuBar(), plot_menu_entries(), form);
  for (const auto& [keys, control] : {std::pair{"Ctrl+O", "openfileforplot"}, std::pair{"F5", "read_again"},
                                      std::pair{"Ctrl+P", "Pgraphics"}})
    form.add_shortcut(keys, control);
  cancel_or_close_on_escape(form, plot_cancel);
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  const ToolPage page = build_tool_page(form, std::string(status_hint));
  page.column->addWidget(build_text_line(plot_about, form));
  page.column->addWidget(tied_chart(plot_chart, form), 1);
  page.column->addWidget(build_text_line(plot_statistics, form));
  page.column->addWidget(build_text_line(plot_missing, form));
  page.column->addWidget(build_progress_row(form, {processing_panel, plot_progress, plot_cancel}));
  return page.content;
}

}  // namespace

FormDesign plot_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
