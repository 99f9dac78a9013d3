#include "filetools/export/ui/export_form_design.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "filetools/export/export_form.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/ui/progress_row.h"

namespace halden {

namespace {

constexpr QSize smallest_size(520, 340);
constexpr QSize start_size(640, 380);
constexpr int margin = 16;
constexpr int gap = 8;
constexpr int text_pixels = 14;
constexpr int button_height = 32;
constexpr int least_of_file = 60;
constexpr int start_width = 110;

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
  QLabel* const name = add_label(form, export_file, new ElidedLabel(least_of_file));
  set_role(*name, Role::reading);
  row->addWidget(name, 1);
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

QLabel* make_result(FormWindow& form) {
  QLabel* const result = add_label(form, export_result, new QLabel);
  result->setWordWrap(true);
  return result;
}

QLayout* make_bottom(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(margin);
  row->addWidget(build_progress_row(form, {export_task, export_progress, export_cancel}), 1);
  QPushButton* const start = make_button(form, export_button);
  start->setMinimumWidth(start_width);
  set_role(*start, Role::main_button);
  row->addWidget(start);
  return row;
}

QWidget* build(FormWindow& form) {
  form.add_shortcut("Ctrl+O", std::string(choose_file_button));
  form.add_shortcut("F5", std::string(export_again));
  cancel_or_close_on_escape(form, export_cancel);
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
  column->addSpacing(gap);
  column->addWidget(make_result(form), 1);
  column->addLayout(make_bottom(form));
  return central;
}

}  // namespace

FormDesign export_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
