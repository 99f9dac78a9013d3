// Builds the menu bar of the main window from its table, and ties every entry to its values.
#pragma once

#include <functional>
#include <string_view>

class QMenuBar;

namespace halden {

class Mirror;

// A click on a control, given by its name.
using Click = std::function<void(std::string_view)>;

// An entry with children becomes a menu, any other an action; both carry the entry's name as object name. The
// mirror shows an entry's texts and marks; `click` learns which entry the user chose and which menu is about
// to open.
void build_menus(QMenuBar& bar, Mirror& mirror, const Click& click);

}  // namespace halden
