// The controls of the hardcopy window HC_window: the date line above a picture of the meter's display, the
// file's name, two buttons, and the entries of its menu bar.
//
// The picture is drawn on a sheet of 9000 x 5080 units of 1/1440 inch: dots of 35 x 35, 300 from the edges.
// What the control of the picture shows are its lines: one for each row of dots, '#' for a black dot and a
// blank for a white one. Without lines there is no picture.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "filetools/hardcopy/hardcopy_file.h"
#include "screen/menu_entry.h"
#include "screen/window.h"

namespace halden {

inline constexpr float hardcopy_margin = 300;
inline constexpr float hardcopy_dot = 35;
inline constexpr float hardcopy_sheet_width = 2 * hardcopy_margin + hardcopy_dot * hardcopy_width;
inline constexpr float hardcopy_sheet_height = 2 * hardcopy_margin + hardcopy_dot * hardcopy_height;

inline constexpr std::string_view open_entry = "open_file_and_plot";
inline constexpr std::string_view printer_entry = "MenuPrinter";
inline constexpr std::string_view next_entry = "next_picture";  // visible when the file has several pictures

inline constexpr std::string_view draw_button = "HC_command";
inline constexpr std::string_view print_button = "Print_HC_command";
inline constexpr std::string_view hardcopy_date = "HC_date_label";
inline constexpr std::string_view hardcopy_name = "Text1";  // of the file, without its folder
inline constexpr std::string_view hardcopy_picture = "picture";

std::span<const MenuEntry> hardcopy_menu();

Window make_hardcopy_form();

// The dots as lines of the control.
std::shared_ptr<const Lines> dot_lines(const Hardcopy& picture);

}  // namespace halden
