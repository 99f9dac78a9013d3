// The controls of the viewer window VIEW: the first line of the block above the list of its lines, a scroll
// bar that shifts them sideways, buttons for the other blocks, and figures about them.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "screen/menu_entry.h"
#include "screen/window.h"

namespace halden {

// The given menu, and entries of our own: for lines of any length, and for reading a growing file again.
std::span<const MenuEntry> viewer_menu();

inline constexpr std::string_view open_view_entry = "OpenViewFile";
inline constexpr std::string_view print_list_entry = "PrintList";
inline constexpr std::string_view long_lines_entry = "long_lines";
inline constexpr std::string_view view_again_entry = "read_again";
inline constexpr std::string_view exit_view_entry = "ExitFile";

inline constexpr std::string_view view_list = "List1";
inline constexpr std::string_view view_heading = "Label1";
inline constexpr std::string_view view_align_note = "Label2";
inline constexpr std::string_view view_shift = "HScroll1";
inline constexpr std::string_view view_reading = "Panel3D3";  // visible while a block is read
inline constexpr std::string_view view_name = "view_name";    // of the file, without its folder
inline constexpr std::string_view previous_block_button = "Command1_0";
inline constexpr std::string_view more_blocks_button = "Command1_1";

// A figure and the caption above it.
struct ViewerPanel {
  std::string_view label;
  std::string_view value;
  std::string_view caption;
};

inline constexpr std::array viewer_panels = {
    ViewerPanel{"selected_record_label", "selected_record_value", "Selected Record"},
    ViewerPanel{"current_block_label", "current_block_value", "Current Block"},
    ViewerPanel{"chars_per_record_label", "chars_per_record_value", "Chars./Record"},
    ViewerPanel{"records_read_label", "records_read_value", "Records Read"},
    ViewerPanel{"blocks_read_label", "blocks_read_value", "Blocks Read"}};

Window make_viewer_form();

}  // namespace halden
