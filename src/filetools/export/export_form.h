// The controls of the window that exports the numbers of a data file: the file, how its numbers are written,
// and what came of it. Buttons that stand for one of several choices are marked.
#pragma once

#include <array>
#include <string_view>

#include "filetools/export/export_options.h"
#include "screen/window.h"

namespace halden {

inline constexpr std::string_view export_entry = "export_numbers";  // of the main window's File menu

inline constexpr std::string_view export_file_label = "export_file_label";
inline constexpr std::string_view export_file = "export_file";  // its name
inline constexpr std::string_view choose_file_button = "choose_file";
inline constexpr std::string_view export_button = "export";
inline constexpr std::string_view export_again = "export_again";  // into the same result; only a key
inline constexpr std::string_view export_task = "export_task";    // visible while an export runs for longer
inline constexpr std::string_view export_progress = "export_progress";
inline constexpr std::string_view export_cancel = "export_cancel";
inline constexpr std::string_view export_result = "export_result";

// A choice of the user: a row with a label and its buttons.
struct ExportChoice {
  std::string_view label;
  std::array<std::string_view, 4> buttons;  // those without a name are not there
};

inline constexpr ExportChoice format_choice = {"format_label", {"format_csv", "format_json"}};
inline constexpr ExportChoice decimal_choice = {"decimal_label", {"decimal_point", "decimal_comma"}};
inline constexpr ExportChoice separator_choice = {"separator_label",
                                                  {"separator_comma", "separator_semicolon"}};
inline constexpr ExportChoice dates_choice = {"dates_label",
                                              {"dates_unknown", "dates_mdy", "dates_dmy", "dates_ymd"}};
inline constexpr std::array export_choices = {format_choice, decimal_choice, separator_choice, dates_choice};

Window make_export_form();

// Marks what is chosen, and disables what cannot be chosen together with it.
void show_options(Window& form, const ExportOptions& options);

}  // namespace halden
