// Builds the menu bar of the main window from its table, and ties every entry to its values.
#pragma once

class QMenuBar;

namespace halden {

class FormWindow;

// An entry with children becomes a menu, any other an action; both carry the entry's name as object name. The
// form's mirror shows an entry's texts and marks; an entry the user chooses, and a menu about to open, are
// clicks on the control.
void build_menus(QMenuBar& bar, FormWindow& form);

}  // namespace halden
