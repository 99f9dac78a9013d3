#include "filetools/export/ui/export_form_design.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <string>

#include "filetools/export/export_form.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr QSize smallest_size(520, 340);
constexpr QSize start_size(640, 380);
constexpr int margin = 16;
constexpr int gap = 8;
constexpr int text_pixels = 14;
constexpr int button_height = 32;
constexpr int least_of_file = 60;
constexpr int bar_height = 6;

QLabel* add_label(FormWindow& form, std::string_view control, QLabel* label) {
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(with_pixel_size(text_font(), text_pixels));
  form.mirror().tie(std::string(control), *label);
  return label;
}

QPushButton* make_button(FormWindow& form, std::string_view control) {
  auto* const button = new QPushButton;
  button->setFont(with_pixel_size(text_font(), text_pixels));
  button->setMinimumHeight(button_height);
  form.tie_button(std::string(control), *button);
  return button;
}

void add_row(FormWindow& form, QGridLayout& grid, std::string_view label, QLayout* content) {
  const int row = grid.rowCount();
  QLabel* const caption = add_label(form, label, new QLabel);
  set_role(*caption, Role::quiet);
  grid.addWidget(caption, row, 0);
  grid.addLayout(content, row, 1);
}

QLayout* make_file_row(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addWidget(add_label(form, export_file, new ElidedLabel(least_of_file)), 1);
  row->addWidget(make_button(form, choose_file_button));
  return row;
}

QLayout* make_choice_row(FormWindow& form, const ExportChoice& choice) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  for (const std::string_view button : choice.buttons)
    if (!button.empty()) row->addWidget(make_button(form, button));
  row->addStretch(1);
  return row;
}

// The result and the progress share the place above the button.
QLayout* make_bottom(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  auto* const result = add_label(form, export_result, new QLabel);
  result->setWordWrap(true);
  row->addWidget(add_label(form, export_task, new QLabel));
  auto* const bar = new QProgressBar;
  bar->setTextVisible(false);
  bar->setFixedHeight(bar_height);
  form.mirror().tie(std::string(export_progress), *bar);
  row->addWidget(bar, 1);
  row->addWidget(make_button(form, export_cancel));
  row->addWidget(result, 2);
  QPushButton* const start = make_button(form, export_button);
  set_role(*start, Role::main_button);
  row->addWidget(start);
  return row;
}

void add_keys(FormWindow& form) {
  form.add_shortcut("Ctrl+O", std::string(choose_file_button));
  form.add_shortcut("F5", std::string(export_again));
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, [&form] {
    if (form.window()[export_cancel].visible)
      form.click(std::string(export_cancel));
    else
      form.close();
  });
}

QWidget* build(FormWindow& form) {
  add_keys(form);
  auto* const central = new QWidget(&form);
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(margin, margin, margin, margin);
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(margin);
  grid->setVerticalSpacing(gap);
  grid->setColumnStretch(1, 1);
  add_row(form, *grid, export_file_label, make_file_row(form));
  for (const ExportChoice& choice : export_choices)
    add_row(form, *grid, choice.label, make_choice_row(form, choice));
  column->addLayout(grid);
  column->addStretch(1);
  column->addLayout(make_bottom(form));
  return central;
}

}  // namespace

FormDesign export_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
