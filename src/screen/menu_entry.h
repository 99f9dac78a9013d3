// An entry of a menu tree. The tree of a window is a table in which parents come before their children, and
// siblings stand in the order they are shown.
#pragma once

#include <string>
#include <string_view>

namespace halden {

// Whether an entry can be chosen from the start. Those that open a window this version does not have yet are
// disabled.
enum class Entry { enabled, disabled };

struct MenuEntry {
  std::string_view parent;  // empty for the menu bar
  std::string name;         // an element of an item array is called "port_number_7"
  std::string caption;
  Entry state = Entry::enabled;
};

}  // namespace halden
