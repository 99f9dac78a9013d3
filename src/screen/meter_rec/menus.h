// The menu tree of the main window.
#pragma once

#include <span>
#include <string_view>

#include "screen/menu_entry.h"

namespace halden {

// The tag of a COM entry whose device is there.
inline constexpr std::string_view present_tag = "present";

std::span<const MenuEntry> menu_entries();

}  // namespace halden
