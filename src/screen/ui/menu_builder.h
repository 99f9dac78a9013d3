// Builds the menu bar of a window from its table, and ties every entry to its values.
#pragma once

#include <functional>
#include <span>

#include "screen/menu_entry.h"

class QAction;
class QMenuBar;

namespace halden {

class FormWindow;

// Called for each entry that is no menu, for icons and shortcuts of its own.
using DecorateEntry = std::function<void(QAction& action, const MenuEntry& entry)>;

// An entry with children becomes a menu, any other an action; both carry the entry's name as object name. The
// form's mirror shows an entry's texts and marks; an entry the user chooses, and a menu about to open, are
// clicks on the control.
void build_menus(QMenuBar& bar, std::span<const MenuEntry> entries, FormWindow& form,
                 const DecorateEntry& decorate = {});

}  // namespace halden
