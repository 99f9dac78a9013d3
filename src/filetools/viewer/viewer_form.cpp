#include "filetools/viewer/viewer_form.h"

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::array captions = {Caption{long_lines_entry, {"&Long Lines", "長行(&L)"}},
                                 Caption{view_again_entry, {"Read &Again", "重新讀取(&A)"}},
                                 Caption{polling_note, polling_note_text}};

constexpr std::array tooltips = {
    Caption{view_list,
            {"Select lines with Ctrl or Shift to print them", "按住 Ctrl 或 Shift 選取要列印的行"}},
    Caption{long_lines_entry, {"Shows lines of any length", "顯示任意長度的行"}}};

constexpr std::array accessible_names = {Caption{view_list, {"Lines of the file", "檔案內容"}},
                                         Caption{view_shift, {"First column shown", "起始欄位"}},
                                         Caption{status_hint, {"Message", "訊息"}}};

// How many lines count as visible until a list on the screen says so.
constexpr std::size_t lines_before_first_look = 16;

void add_texts(Window& window) {
  for (const std::string_view name : {view_list, view_heading, view_name, view_shift, status_hint})
    window.add(std::string(name), {});
  window.set_list(view_list, {.top = 0, .room = lines_before_first_look, .selected = {}});
  for (const ViewerPanel& panel : viewer_panels) {
    window.add(std::string(panel.label), {});
    window.add(std::string(panel.value), {});
    window.set_text(panel.label, panel.caption);
  }
}

// Those that are not visible from the start.
void add_hidden(Window& window) {
  for (const std::string_view name :
       {view_align_note, view_reading, previous_block_button, more_blocks_button, polling_note}) {
    window.add(std::string(name), {});
    window.set_visible(name, false);
  }
  window.set_visible(view_shift, false);
  window.set_text(view_align_note, "Click at the list to re-align list");
  window.set_text(view_reading, "Reading...");
  window.set_text(previous_block_button, "Preivous Block");
  window.set_text(more_blocks_button, "More Blocks...");
}

}  // namespace

std::span<const MenuEntry> viewer_menu() {
  static const std::array<MenuEntry, 6> entries = {
      {{"", "view_file_menu", "&File"},
       {"view_file_menu", std::string(open_view_entry), "&Open"},
       {"view_file_menu", std::string(print_list_entry), "&Print", Entry::disabled},
       {"view_file_menu", std::string(long_lines_entry), ""},
       {"view_file_menu", std::string(view_again_entry), "", Entry::disabled},
       {"view_file_menu", std::string(exit_view_entry), "E&xit"}}};
  return entries;
}

Window make_viewer_form() {
  Window window("VIEW");
  window.set_caption("View");
  for (const MenuEntry& entry : viewer_menu()) {
    window.add(entry.name, {});
    window.set_text(entry.name, entry.caption);
    window.set_enabled(entry.name, entry.state == Entry::enabled);
  }
  add_texts(window);
  add_hidden(window);
  window.set_captions(captions);
  window.set_tooltips(tooltips);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace halden
