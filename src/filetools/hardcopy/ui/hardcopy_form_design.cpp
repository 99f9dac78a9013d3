#include "filetools/hardcopy/ui/hardcopy_form_design.h"

#include <QAction>
#include <QBoxLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <string>

#include "filetools/hardcopy/hardcopy_form.h"
#include "filetools/hardcopy/ui/hardcopy_sheet.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/bottom_row.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"
#include "screen/ui/menu_builder.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 770);
constexpr int margin = 16;
constexpr int gap = 10;
constexpr int least_of_text = 60;
constexpr int least_of_note = 120;
constexpr int date_pixels = 20;
constexpr int text_pixels = 14;
constexpr QSize button_size(120, 34);

void build_menu(FormWindow& form) {
  build_menus(*form.menuBar(), hardcopy_menu(), form, [](QAction& action, const MenuEntry& entry) {
    if (entry.name == open_entry) action.setShortcut(QKeySequence(QKeySequence::Open));
    if (entry.name == printer_entry) action.setShortcut(QKeySequence(QKeySequence::Print));
    if (entry.name == "read_again") action.setShortcut(QKeySequence(Qt::Key_F5));
    if (entry.name == next_entry) action.setShortcut(QKeySequence(Qt::Key_PageDown));
  });
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, &QWidget::close);
}

ElidedLabel* make_label(FormWindow& form, std::string_view control, Role role, const QFont& font) {
  auto* const label = new ElidedLabel(least_of_text);
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  set_role(*label, role);
  form.mirror().tie(std::string(control), *label);
  return label;
}

void add_button(FormWindow& form, std::string_view control, QBoxLayout& row) {
  auto* const button = new QPushButton;
  button->setFont(with_pixel_size(text_font(), text_pixels));
  button->setMinimumSize(button_size);
  form.tie_button(std::string(control), *button);
  form.keep_off_paper(*button);
  row.addWidget(button);
}

// The date, the file's name, and the buttons at the end of the line.
QBoxLayout* build_top(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addWidget(
      make_label(form, hardcopy_date, Role::reading, with_pixel_size(reading_font(), date_pixels)));
  row->addSpacing(gap);
  row->addWidget(make_label(form, hardcopy_name, Role::quiet, with_pixel_size(text_font(), text_pixels)), 1);
  for (const std::string_view button : {draw_button, print_button}) add_button(form, button, *row);
  return row;
}

BottomRow* build_bottom(FormWindow& form) {
  auto* const row = new BottomRow(form.theme());
  row->add_field(std::string(polling_note), form.mirror(), least_of_note);
  row->add_field(std::string(status_hint), form.mirror(), 0, 1)->setAlignment(Qt::AlignRight);
  form.keep_off_paper(*row);
  return row;
}

QWidget* build(FormWindow& form) {
  build_menu(form);
  auto* const central = new QWidget(&form);
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* const page = new QVBoxLayout;
  page->setContentsMargins(margin, gap, margin, gap);
  page->setSpacing(gap);
  page->addLayout(build_top(form));
  page->addWidget(new HardcopySheet(form, central), 1);
  column->addLayout(page, 1);
  column->addWidget(build_bottom(form));
  return central;
}

}  // namespace

FormDesign hardcopy_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
