// The menu tree of the main window.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "screen/menu_entry.h"

namespace halden {

// The tag of a COM entry whose device is there.
inline constexpr std::string_view present_tag = "present";

// The files opened last: a menu for each kind of file ("power"), with an entry for each file. The entries of
// "recent_power" are its elements from 0 on.
inline constexpr int recent_entries = 10;
std::string recent_menu(std::string_view kind);

std::span<const MenuEntry> menu_entries();

}  // namespace halden
