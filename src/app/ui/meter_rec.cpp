#include "app/ui/meter_rec.h"

#include <QAction>
#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <array>

#include "app/ui/meter_content.h"
#include "app/ui/port_marks.h"
#include "app/ui/status_row.h"
#include "screen/meter_rec/menus.h"
#include "screen/ui/menu_builder.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1280, 800);

struct ControlShortcut {
  const char* keys;
  const char* control;
};

constexpr std::array control_shortcuts = {ControlShortcut{"F5", "get_hz"},
                                          ControlShortcut{"Ctrl+P", "Command3D1"}};

void add_shortcuts(FormWindow& form) {
  for (const ControlShortcut& shortcut : control_shortcuts)
    form.add_shortcut(shortcut.keys, shortcut.control);
  auto* const menu_key = new QShortcut(QKeySequence(Qt::Key_F10), &form);
  QObject::connect(menu_key, &QShortcut::activated, &form,
                   [bar = form.menuBar()] { bar->setActiveAction(bar->actions().front()); });
}

QWidget* build(FormWindow& form) {
  build_menus(*form.menuBar(), menu_entries(), form, [&form](QAction& action, const MenuEntry& entry) {
    if (entry.parent == "comm_port") tie_port_marks(action, entry.name, form);
    if (entry.name == "quit") action.setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
  });
  add_shortcuts(form);
  auto* const central = new QWidget(&form);
  auto* const column = new QVBoxLayout(central);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(new MeterContent(form), 1);
  auto* const status_row = new StatusRow(form.mirror(), form.theme());
  column->addWidget(status_row);
  form.keep_off_paper(*status_row);
  return central;
}

}  // namespace

FormDesign meter_rec_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
