#include "app/ui/menu_builder.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "screen/meter_rec/menus.h"
#include "screen/ui/form_window.h"

namespace halden {

namespace {

struct Shortcut {
  std::string_view entry;
  const char* keys;
};

constexpr std::array shortcuts = {Shortcut{"quit", "Ctrl+Q"}};

bool has_children(std::string_view name) {
  for (const MenuEntry& entry : menu_entries())
    if (entry.parent == name) return true;
  return false;
}

// Qt toggles the mark of a chosen entry; that is undone, because the values decide which entries are marked.
void tie_action(QAction& action, const std::string& name, FormWindow& form) {
  form.mirror().tie(name, action);
  QObject::connect(&action, &QAction::triggered, &form, [&action, name, &form](bool now_checked) {
    if (action.isCheckable()) action.setChecked(!now_checked);
    form.click(name);
  });
}

void set_shortcut(QAction& action, std::string_view name) {
  for (const Shortcut& shortcut : shortcuts)
    if (shortcut.entry == name) action.setShortcut(QKeySequence(QLatin1String(shortcut.keys)));
}

}  // namespace

void build_menus(QMenuBar& bar, FormWindow& form) {
  std::map<std::string, QMenu*, std::less<>> menus;
  for (const MenuEntry& entry : menu_entries()) {
    QMenu* const parent = entry.parent.empty() ? nullptr : menus.at(std::string(entry.parent));
    QAction* action = nullptr;
    if (has_children(entry.name)) {
      QMenu* const menu = parent != nullptr ? parent->addMenu(QString()) : bar.addMenu(QString());
      menu->setObjectName(to_qt(entry.name));
      menu->setToolTipsVisible(true);
      menus.emplace(entry.name, menu);
      action = menu->menuAction();
      form.mirror().tie(entry.name, *action);
      QObject::connect(menu, &QMenu::aboutToShow, &form, [name = entry.name, &form] { form.click(name); });
    } else {
      action = parent != nullptr ? parent->addAction(QString()) : bar.addAction(QString());
      tie_action(*action, entry.name, form);
      set_shortcut(*action, entry.name);
    }
    action->setObjectName(to_qt(entry.name));
  }
}

}  // namespace halden
