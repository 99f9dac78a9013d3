#include "filetools/printing/ui/print_form_design.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <string>

#include "filetools/printing/print_form.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/bottom_row.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/fonts.h"

namespace halden {

namespace {

constexpr QSize smallest_size(460, 250);
constexpr int margin = 16;
constexpr int gap = 10;
constexpr int text_pixels = 14;
constexpr int printing_height = 32;
constexpr QSize button_size(96, 30);

QFont dialog_font() { return with_pixel_size(text_font(), text_pixels); }

// The Enter key presses the button that has the focus, otherwise OK.
void add_keys(FormWindow& form) {
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, &QWidget::close);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* const enter = new QShortcut(QKeySequence(key), &form);
    QObject::connect(enter, &QShortcut::activated, &form, [&form] {
      auto* const focused = qobject_cast<QPushButton*>(form.focusWidget());
      focused != nullptr ? focused->click() : form.click(std::string(print_ok));
    });
  }
}

QPushButton* make_button(FormWindow& form, std::string_view control) {
  auto* const button = new QPushButton;
  button->setFont(dialog_font());
  button->setMinimumSize(button_size);
  form.tie_button(std::string(control), *button);
  return button;
}

QLabel* make_label(FormWindow& form, std::string_view control) {
  auto* const label = new QLabel;
  label->setObjectName(to_qt(control));
  label->setTextFormat(Qt::PlainText);
  label->setFont(dialog_font());
  form.mirror().tie(std::string(control), *label);
  return label;
}

void add_options(FormWindow& form, QBoxLayout& column) {
  for (const std::string_view control : {whole_file_option, selected_data_option}) {
    auto* const option = new QRadioButton;
    option->setObjectName(to_qt(control));
    option->setFont(dialog_font());
    form.mirror().tie(std::string(control), *option);
    QObject::connect(option, &QRadioButton::clicked, &form,
                     [&form, control] { form.click(std::string(control)); });
    column.addWidget(option);
  }
}

QBoxLayout* build_printer(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addWidget(make_label(form, printer_label));
  auto* const box = new QComboBox;
  box->setObjectName(to_qt(printer_choice));
  box->setFont(dialog_font());
  box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // however long a name is
  form.mirror().tie(std::string(printer_choice), *box);
  row->addWidget(box, 1);
  return row;
}

// Empty while nothing is printed.
QBoxLayout* build_printing(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addStrut(printing_height);
  row->addWidget(make_label(form, printing_panel));
  row->addWidget(make_label(form, print_pages), 1);
  row->addWidget(make_button(form, print_cancel));
  return row;
}

QBoxLayout* build_buttons(FormWindow& form) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(gap);
  row->addStretch(1);
  QPushButton* const ok = make_button(form, print_ok);
  set_role(*ok, Role::main_button);
  row->addWidget(ok);
  row->addWidget(make_button(form, print_close));
  return row;
}

QWidget* build(FormWindow& form) {
  form.menuBar()->hide();  // it has no entries
  add_keys(form);
  auto* const central = new QWidget(&form);
  auto* const outer = new QVBoxLayout(central);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* const column = new QVBoxLayout;
  column->setContentsMargins(margin, margin, margin, gap);
  column->setSpacing(gap);
  add_options(form, *column);
  column->addLayout(build_printer(form));
  column->addLayout(build_printing(form));
  column->addStretch(1);
  column->addLayout(build_buttons(form));
  outer->addLayout(column, 1);
  auto* const bottom = new BottomRow(form.theme());
  bottom->add_field(std::string(status_hint), form.mirror(), 0, 1);
  outer->addWidget(bottom);
  return central;
}

}  // namespace

FormDesign print_form_design() { return {smallest_size, smallest_size, build}; }

}  // namespace halden
