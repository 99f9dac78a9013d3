#include "filetools/hardcopy/hardcopy_form.h"

#include <array>
#include <string>
#include <utility>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::array captions = {Caption{next_entry, {"Next Picture", "下一張"}},
                                 Caption{"picture_menu", {"P&icture", "圖片(&I)"}},
                                 Caption{"picture_copy", {"&Copy", "複製(&C)"}},
                                 Caption{"picture_save", {"&Save...", "儲存(&S)..."}},
                                 Caption{"read_again", {"Read &Again", "重新讀取(&A)"}},
                                 Caption{polling_note, polling_note_text}};

constexpr std::array tooltips = {
    Caption{draw_button, {"Reads the file again and draws its first picture", "重新讀取檔案並畫出第一張"}},
    Caption{print_button, {"Prints date and picture on a page in landscape", "橫向列印日期與畫面"}}};

constexpr std::array accessible_names = {Caption{hardcopy_picture, {"Display of the meter", "電表畫面"}},
                                         Caption{status_hint, {"Message", "訊息"}}};

}  // namespace

std::span<const MenuEntry> hardcopy_menu() {
  static const std::array<MenuEntry, 7> entries = {{{"", std::string(open_entry), "&File"},
                                                    {"", std::string(printer_entry), "&Printer"},
                                                    {"", "picture_menu", ""},
                                                    {"picture_menu", "picture_copy", ""},
                                                    {"picture_menu", "picture_save", ""},
                                                    {"picture_menu", "read_again", ""},
                                                    {"", std::string(next_entry), "Next Picture"}}};
  return entries;
}

Window make_hardcopy_form() {
  Window window("HC_window");
  window.set_caption("Hard Copy of Window");
  for (const MenuEntry& entry : hardcopy_menu()) {
    window.add(entry.name, {});
    window.set_text(entry.name, entry.caption);
  }
  for (const std::string_view name :
       {draw_button, print_button, hardcopy_date, hardcopy_name, hardcopy_picture, polling_note, status_hint})
    window.add(std::string(name), {});
  window.set_text(draw_button, "Hardcopy");
  window.set_text(print_button, "PRINT");
  window.set_place(hardcopy_picture, {hardcopy_margin, hardcopy_margin, hardcopy_dot * hardcopy_width,
                                      hardcopy_dot * hardcopy_height});
  for (const std::string_view name : {next_entry, polling_note}) window.set_visible(name, false);
  window.set_captions(captions);
  window.set_tooltips(tooltips);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

std::shared_ptr<const Lines> dot_lines(const Hardcopy& picture) {
  return std::make_shared<const Lines>(dot_picture(picture).rows);
}

}  // namespace halden
