#include "app/ui/menu_builder.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "screen/meter_rec/menus.h"
#include "screen/ui/form_window.h"

namespace halden {

namespace {

constexpr std::string_view port_menu = "comm_port";

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

// A tick for the chosen port, a disc behind it where the device is there. Both are in one icon, because an
// icon takes the place of the tick that Qt draws.
QPixmap draw_marks(const Control& entry, const QColor& colour, int size) {
  constexpr double designed_size = 16;
  constexpr std::array tick = {QPointF(1, 8.5), QPointF(3.5, 11), QPointF(7.5, 5)};
  QPixmap marks(size, size);
  marks.fill(Qt::transparent);
  QPainter painter(&marks);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / designed_size, size / designed_size);
  painter.setPen(QPen(colour, 1.6));
  if (entry.checked) painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  if (entry.tag == present_tag) painter.drawEllipse(QPointF(12.5, 8), 3, 3);
  return marks;
}

// In the colours of the texts beside it, also while the pointer is on the entry.
QIcon make_icon(const Control& entry, const Theme& theme) {
  QIcon icon;
  if (!entry.checked && entry.tag != present_tag) return icon;
  for (const int size : {16, 32}) {
    icon.addPixmap(draw_marks(entry, theme.text, size), QIcon::Normal);
    icon.addPixmap(draw_marks(entry, theme.panel, size), QIcon::Active);
  }
  return icon;
}

void tie_port_marks(QAction& action, const std::string& name, FormWindow& form) {
  form.mirror().tie(
      name, [&action, &theme = form.theme()](const Control& now) { action.setIcon(make_icon(now, theme)); });
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
      if (entry.parent == port_menu) tie_port_marks(*action, entry.name, form);
      set_shortcut(*action, entry.name);
    }
    action->setObjectName(to_qt(entry.name));
  }
}

}  // namespace halden
