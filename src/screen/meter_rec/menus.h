// The menu tree of the main window as a table: the parent of each entry, its name and its English caption.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace halden {

// Whether an entry can be chosen from the start. Those that open a window this version does not have yet are
// disabled.
enum class Entry { enabled, disabled };

// The tag of a COM entry whose device is there.
inline constexpr std::string_view present_tag = "present";

struct MenuEntry {
  std::string_view parent;  // empty for the menu bar
  std::string name;         // an element of an item array is called "port_number_7"
  std::string caption;
  Entry state = Entry::enabled;
};

// Parents come before their children; siblings in the order they are shown.
std::span<const MenuEntry> menu_entries();

}  // namespace halden
