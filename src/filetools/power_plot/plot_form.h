// The controls of the window that plots power data files, PlotFile.
#pragma once

#include <span>
#include <string_view>

#include "screen/menu_entry.h"
#include "screen/window.h"

namespace halden {

// Its menu tree: the given menus, and one of our own for leaving out what is no reading, for handing the
// chart on to other programs and for reading a growing file again. These are not entries of the File menu,
// because opening that one sets the title of the X axis.
std::span<const MenuEntry> plot_menu_entries();

inline constexpr std::string_view plot_chart = "Graph1";
inline constexpr std::string_view processing_panel = "Panel3D1";  // shown while a file is read
inline constexpr std::string_view plot_progress = "plot_progress";
inline constexpr std::string_view plot_cancel = "plot_cancel";

// Lines about the plot: the file and its records; records without a reading; the statistics as numbers.
inline constexpr std::string_view plot_about = "plot_about";
inline constexpr std::string_view plot_missing = "plot_missing";
inline constexpr std::string_view plot_statistics = "plot_statistics";

inline constexpr std::string_view plot_caption = "Power Analyzer  --  Plot Data ";

Window make_plot_window();

}  // namespace halden
