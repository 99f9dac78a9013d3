#include "filetools/printing/print_form.h"

#include <array>
#include <string>
#include <utility>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

// The same in both languages.
constexpr std::array fixed_captions = {
    std::pair{whole_file_option, "Whole File"}, std::pair{selected_data_option, "Selected Data"},
    std::pair{print_ok, "OK"}, std::pair{print_close, "Cancel"}, std::pair{printing_panel, "Printing..."}};

constexpr std::array captions = {Caption{printer_label, {"Printer", "印表機"}},
                                 Caption{print_cancel, {"Cancel", "取消"}}};

constexpr std::array accessible_names = {Caption{printer_choice, {"Printer", "印表機"}},
                                         Caption{print_cancel, {"Cancel printing", "取消列印"}},
                                         Caption{status_hint, {"Message", "訊息"}}};

}  // namespace

Window make_print_form() {
  Window window("PrintFile");
  window.set_caption("Print");
  for (const auto& [name, caption] : fixed_captions) {
    window.add(std::string(name), {});
    window.set_text(name, caption);
  }
  for (const std::string_view name : {printer_label, printer_choice, print_pages, print_cancel, status_hint})
    window.add(std::string(name), {});
  for (const std::string_view name : {printing_panel, print_pages, print_cancel})
    window.set_visible(name, false);
  window.set_checked(whole_file_option, true);
  window.set_captions(captions);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace halden
