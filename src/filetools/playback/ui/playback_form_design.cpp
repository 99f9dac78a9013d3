#include "filetools/playback/ui/playback_form_design.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QGridLayout>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <string>

#include "chart/ui/chart_view.h"
#include "filetools/playback/playback_form.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/ui/menu_builder.h"
#include "screen/ui/progress_row.h"
#include "screen/ui/tool_page.h"
#include "screen/ui/value_panel.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 720);
constexpr int gap = 6;
constexpr int line_pixels = 13;
constexpr int panel_height = 56;
constexpr int panel_columns = 6;
constexpr int caption_pixels = 12;
constexpr int digit_pixels = 24;
constexpr int list_width = 176;

void build_menu(FormWindow& form) {
  build_menus(*form.menuBar(), playback_menu_entries(), form);
  for (const auto& [keys, control] : {std::pair{"Ctrl+O", "openfileforplot"}, std::pair{"F5", "read_again"},
                                      std::pair{"Ctrl+P", "set_color"}})
    form.add_shortcut(keys, control);
  cancel_or_close_on_escape(form, playback_cancel);
}

// What is said about the file, and at the end of the line about a record that cannot be shown.
QBoxLayout* build_top(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->addWidget(build_text_line(playback_about_line, form), 1);
  auto* const note = build_text_line(playback_note_line, form);
  set_role(*note, Role::alert);
  row->addWidget(note);
  return row;
}

ValuePanel* build_panel(const Panel& panel, FormWindow& form) {
  auto* const built = new ValuePanel(to_qt(panel.label), to_qt(panel.value), {}, form.theme(), nullptr);
  built->setFixedHeight(panel_height);
  built->set_caption_font(with_pixel_size(text_font(), caption_pixels));
  built->value().set_size(digit_pixels);
  built->value().setAccessibleName(to_qt(panel.caption));
  form.mirror().tie(panel.label, built->caption());
  form.mirror().tie(panel.value, built->value());
  return built;
}

// Two rows; the date, which is the longest, takes two columns of the first.
QGridLayout* build_panels(FormWindow& form) {
  auto* const grid = new QGridLayout;
  grid->setSpacing(gap);
  int place = 0;
  for (const Panel& panel : playback_panels()) {
    const int columns = place == 0 ? 2 : 1;
    grid->addWidget(build_panel(panel, form), place / panel_columns, place % panel_columns, 1, columns);
    place += columns;
  }
  for (int column = 0; column < panel_columns; ++column) grid->setColumnStretch(column, 1);
  return grid;
}

// As many items as lines. Those that stay keep the place to which the user has scrolled the list.
void show_lines(QListWidget& list, const Lines& lines) {
  const int count = static_cast<int>(lines.size());
  while (list.count() > count) delete list.takeItem(list.count() - 1);
  for (int row = 0; row < count; ++row) {
    if (row == list.count()) list.addItem(QString());
    list.item(row)->setText(to_qt(lines[static_cast<std::size_t>(row)]));
    list.item(row)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
}

// In a fixed font, because the fields are padded with blanks.
QWidget* build_list(FormWindow& form) {
  auto* const list = new QListWidget;
  list->setObjectName(to_qt(playback_list));
  list->setFixedWidth(list_width);
  list->setFont(with_pixel_size(QFontDatabase::systemFont(QFontDatabase::FixedFont), line_pixels));
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  set_role(*list, Role::list);
  form.mirror().tie(std::string(playback_list), [list](const Control& now) {
    list->setVisible(now.visible);
    list->setAccessibleName(to_qt(now.accessible_name));
    show_lines(*list, now.lines ? *now.lines : Lines());
  });
  return list;
}

QWidget* build_scroll_bar(FormWindow& form) {
  auto* const bar = new QScrollBar(Qt::Vertical);
  bar->setObjectName(to_qt(playback_scroll));
  bar->setFocusPolicy(Qt::StrongFocus);
  form.mirror().tie(std::string(playback_scroll), *bar);
  for (const auto& [keys, step] : {std::pair{"Ctrl+Up", QAbstractSlider::SliderSingleStepSub},
                                   std::pair{"Ctrl+Down", QAbstractSlider::SliderSingleStepAdd}}) {
    auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), &form);
    QObject::connect(shortcut, &QShortcut::activated, bar, [bar, step = step] { bar->triggerAction(step); });
  }
  form.keep_off_paper(*bar);
  return bar;
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  const ToolPage page = build_tool_page(form, std::string(status_hint));
  page.column->addLayout(build_top(form));
  page.column->addLayout(build_panels(form));
  auto* const middle = new QHBoxLayout;
  middle->addWidget(tied_chart(playback_chart_name, form), 1);
  middle->addWidget(build_scroll_bar(form));
  middle->addWidget(build_list(form));
  page.column->addLayout(middle, 1);
  auto* const progress = build_progress_row(form, {playback_reading, playback_progress, playback_cancel});
  form.mirror().tie(std::string(playback_reading), [progress](const Control& now) {
    progress->setVisible(now.visible);  // it is seldom needed, and the chart wants its room
  });
  page.column->addWidget(progress);
  return page.content;
}

}  // namespace

FormDesign playback_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
