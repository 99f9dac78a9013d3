#include "screen/ui/menu_builder.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <map>
#include <string>
#include <string_view>

#include "screen/ui/form_window.h"

namespace halden {

namespace {

bool has_children(std::span<const MenuEntry> entries, std::string_view name) {
  return std::any_of(entries.begin(), entries.end(),
                     [name](const MenuEntry& entry) { return entry.parent == name; });
}

// Qt toggles the mark of a chosen entry; that is undone, because the values decide which entries are marked.
void tie_action(QAction& action, const std::string& name, FormWindow& form) {
  form.mirror().tie(name, action);
  QObject::connect(&action, &QAction::triggered, &form, [&action, name, &form](bool now_checked) {
    if (action.isCheckable()) action.setChecked(!now_checked);
    form.click(name);
  });
}

}  // namespace

void build_menus(QMenuBar& bar, std::span<const MenuEntry> entries, FormWindow& form,
                 const DecorateEntry& decorate) {
  std::map<std::string, QMenu*, std::less<>> menus;
  for (const MenuEntry& entry : entries) {
    QMenu* const parent = entry.parent.empty() ? nullptr : menus.at(std::string(entry.parent));
    QAction* action = nullptr;
    if (has_children(entries, entry.name)) {
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
      if (decorate) decorate(*action, entry);
    }
    action->setObjectName(to_qt(entry.name));
  }
}

}  // namespace halden
