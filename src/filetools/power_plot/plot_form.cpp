#include "filetools/power_plot/plot_form.h"

#include <array>
#include <utility>
#include <vector>

#include "filetools/power_plot/plot_choices.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

using Captions = std::vector<std::pair<int, std::string_view>>;

const Captions scales = {{0, "Auto"}, {1, "Ymin"}, {2, "Ymax"}};
const Captions x_labels = {{0, "Time"}, {1, "Sequence"}};
const Captions titles = {{0, "X Title"}, {1, "Y Title"}, {3, "No X Title"}, {4, "No Y Title"}};
const Captions grids = {{0, "None"}, {1, "Horizontal"}, {2, "Vertical"}, {3, "Both"}};

void add_items(std::vector<MenuEntry>& entries, std::string_view menu, std::string_view item,
               const Captions& captions) {
  for (const auto& [index, caption] : captions)
    entries.push_back({menu, element(item, index), std::string(caption)});
}

std::vector<MenuEntry> all_entries() {
  std::vector<MenuEntry> entries = {{"", "openfile", "&File"},
                                    {"openfile", "openfileforplot", "&Open"},
                                    {"openfile", "exit_plot", "E&xit"},
                                    {"", "Select", "Select"}};
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    entries.push_back({"Select", element("SelectData", static_cast<int>(choice)),
                       std::string(plot_choices[choice].caption)});
  entries.push_back({"", "Scale", "Scale"});
  add_items(entries, "Scale", "set_scale", scales);
  entries.push_back({"", "XLabel", "X Label"});
  add_items(entries, "XLabel", "set_x_label", x_labels);
  entries.push_back({"", "Title", "Title"});
  add_items(entries, "Title", "set_title", titles);
  entries.push_back({"", "Grid", "Grid"});
  add_items(entries, "Grid", "set_grid", grids);
  entries.push_back({"", "ZoomIn", "&Zoom", Entry::disabled});
  entries.push_back({"", "Status", "Status", Entry::disabled});
  for (std::size_t index = 0; index < statistic_captions.size(); ++index)
    entries.push_back(
        {"Status", element("StatOption", static_cast<int>(index)), std::string(statistic_captions[index])});
  entries.push_back({"", "clear_graphics", "&Clear"});
  entries.push_back({"", "Pgraphics", "&Print"});
  entries.push_back({"", "chart_menu", ""});
  for (const std::string_view entry :
       {"leave_out", "chart_copy", "chart_copy_points", "chart_save", "save_points"})
    entries.push_back({"chart_menu", std::string(entry), ""});
  entries.push_back({"chart_menu", "read_again", "", Entry::disabled});
  return entries;
}

constexpr std::array captions = {
    Caption{"chart_menu", {"C&hart", "圖表(&H)"}},
    Caption{"read_again", {"Read &Again", "重新讀取(&A)"}},
    Caption{"chart_copy", {"&Copy Picture", "複製圖片(&C)"}},
    Caption{"chart_copy_points", {"Copy &Points", "複製數據(&P)"}},
    Caption{"chart_save", {"&Save Picture...", "儲存圖片(&S)..."}},
    Caption{"save_points", {"Save Points as CS&V...", "數據存成 CSV(&V)..."}},
    Caption{"leave_out", {"&Leave Out Records Without a Reading", "不繪出無讀值的紀錄(&L)"}},
    Caption{plot_cancel, {"Cancel", "取消"}},
};

constexpr std::array accessible_names = {Caption{plot_chart, {"Chart", "圖表"}},
                                         Caption{plot_progress, {"Progress", "進度"}}};

}  // namespace

std::span<const MenuEntry> plot_menu_entries() {
  static const std::vector<MenuEntry> entries = all_entries();
  return entries;
}

Window make_plot_window() {
  Window window("PlotFile");
  window.set_caption(plot_caption);
  for (const MenuEntry& entry : plot_menu_entries()) {
    window.add(entry.name, {});
    window.set_text(entry.name, entry.caption);
    window.set_enabled(entry.name, entry.state == Entry::enabled);
  }
  for (const std::string_view name : {plot_chart, plot_about, plot_missing, plot_statistics, status_hint})
    window.add(std::string(name), {});
  for (const std::string_view name : {processing_panel, plot_progress, plot_cancel}) {
    window.add(std::string(name), {});
    window.set_visible(name, false);
  }
  window.set_text(processing_panel, "Processing...");
  window.set_captions(captions);
  window.set_accessible_names(accessible_names);
  window.apply_captions(Language::english);
  return window;
}

}  // namespace halden
