// The controls of the print dialog PrintFile: what is printed and where, and how far it is.
#pragma once

#include <string_view>

#include "screen/window.h"

namespace halden {

inline constexpr std::string_view whole_file_option = "Option3D1_0";
inline constexpr std::string_view selected_data_option = "Option3D1_2";
inline constexpr std::string_view print_ok = "Command3D1_0";
inline constexpr std::string_view print_close = "Command3D1_1";
inline constexpr std::string_view printing_panel = "Panel3D1";  // visible while a document is printed

// The printers by name, and a PDF file behind them. The value is the index of the chosen one.
inline constexpr std::string_view printer_label = "printer_label";
inline constexpr std::string_view printer_choice = "printer_choice";

// On a line of their own, visible while a document is printed.
inline constexpr std::string_view print_pages = "print_pages";
inline constexpr std::string_view print_cancel = "print_cancel";

Window make_print_form();

}  // namespace halden
