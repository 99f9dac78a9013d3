#include "logger/ui/logger_form_design.h"

#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <string>

#include "logger/logger_form.h"
#include "logger/ui/logger_page.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/bottom_row.h"
#include "screen/ui/elided_label.h"

namespace halden {

namespace {

constexpr QSize smallest_size(720, 470);  // less than half a screen of 1920 x 1080
constexpr QSize start_size(1040, 740);
constexpr int least_of_note = 120;

void cancel_or_close(FormWindow& form) {
  if (form.window()[transfer_cancel].visible)
    form.click(std::string(transfer_cancel));
  else
    form.close();
}

BottomRow* build_bottom(FormWindow& form) {
  auto* const row = new BottomRow(form.theme());
  row->add_field(std::string(polling_note), form.mirror(), least_of_note);
  row->add_field(std::string(status_hint), form.mirror(), 0, 1)->setAlignment(Qt::AlignRight);
  return row;
}

QWidget* build(FormWindow& form, Window& notice) {
  form.menuBar()->hide();  // it has no entries
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, [&form] { cancel_or_close(form); });
  auto* const central = new QWidget(&form);
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(new LoggerPage(form, notice), 1);
  column->addWidget(build_bottom(form));
  return central;
}

}  // namespace

FormDesign logger_form_design(Window& notice) {
  return {smallest_size, start_size, [&notice](FormWindow& form) { return build(form, notice); }};
}

}  // namespace halden
