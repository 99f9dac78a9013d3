// The controls of the window that plays back spectra and waveforms, P_Harmo.
#pragma once

#include <span>
#include <string_view>

#include "screen/menu_entry.h"
#include "screen/meter_rec/panels.h"
#include "screen/window.h"

namespace halden {

// Its menu tree: the given menus, and entries of our own for reading a growing file again and for
// handing the chart and its points on.
std::span<const MenuEntry> playback_menu_entries();

inline constexpr std::string_view playback_chart_name = "Graph1";
inline constexpr std::string_view playback_list = "List1";       // the harmonic values; hidden for waveforms
inline constexpr std::string_view playback_scroll = "VScroll1";  // hidden until there are records
inline constexpr std::string_view playback_index = "Label1";

// Visible while a long file is read.
inline constexpr std::string_view playback_reading = "playback_reading";
inline constexpr std::string_view playback_progress = "playback_progress";
inline constexpr std::string_view playback_cancel = "playback_cancel";

// Lines about the file, and about a line of it that is no record.
inline constexpr std::string_view playback_about_line = "playback_about";
inline constexpr std::string_view playback_note_line = "playback_note";

// Date, time, the values of the record, its number and how many there are, in their order on the screen.
std::span<const Panel> playback_panels();

Window make_playback_window();

}  // namespace halden
