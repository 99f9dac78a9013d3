#include "screen/meter_rec/main_window.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "screen/meter_rec/accessible_names.h"
#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/menus.h"
#include "screen/meter_rec/panels.h"
#include "screen/meter_rec/settings.h"
#include "screen/meter_rec/tooltips.h"

namespace halden {

namespace {

constexpr std::array captions = {
    Caption{"phasor_button", {"PHASOR", "向量圖"}},
    Caption{"get_hz", {"Update Now", "讀取設定"}},
    Caption{"view_harmonics", {"Harmonics", "諧波"}},
    Caption{"show_wave", {"Waveform", "波形"}},
    Caption{"loggerPWR", {"Datalogger", "記錄器"}},
    Caption{"Option_Menu", {"Option", "選項"}},
    Caption{"reset_kwh", {"<- Reset", "<- 歸零"}},
    Caption{"zmenu", {"File", "檔案"}},
    Caption{"record_button", {"Record", "記錄"}},
    Caption{"system_label", {"System", "系統"}},
    Caption{"Label1_4", {"Date", "日期"}},
    Caption{"Label1_2", {"Time", "時間"}},
    Caption{"Label1_0", {"Sample", "取樣秒數"}},
    Caption{"Command3D1", {"Print", "列印"}},
    Caption{"FileName", {"&Create Data File", "建立檔案名稱"}},
    Caption{"FileStart", {"&Start Recording", "開始記錄"}},
    Caption{"auto_record", {"Auto", "自動"}},
    Caption{"manual_record", {"Manually", "手動"}},
    Caption{"FileStop", {"&End Recording", "停止記錄"}},
    Caption{"ViewFile", {"&View File", "瀏灠檔案"}},
    Caption{"OpenPlotFile", {"&Plot Power Data", "電力記錄畫圖"}},
    Caption{"show_plot_harmonics", {"Plot &Harmonics", "諧波記錄畫圖"}},
    Caption{"show_plot_waveform", {"Plot &Waveform", "波形記錄畫圖"}},
    Caption{"show_plot_hardcopy", {"Plot &Hardcopy", "視窗記錄畫圖"}},
    Caption{"export_numbers", {"Export as &Numbers...", "匯出為數值..."}},
    Caption{"recent_files", {"&Recent Files", "最近開啟的檔案"}},
    Caption{"recent_power", {"Power Data", "電力記錄"}},
    Caption{"recent_harmonics", {"Harmonics", "諧波記錄"}},
    Caption{"recent_waveform", {"Waveform", "波形記錄"}},
    Caption{"recent_hardcopy", {"Hardcopy", "視窗記錄"}},
    Caption{"recent_text", {"View File", "瀏覽檔案"}},
    // The headings of the right-hand column.
    Caption{"settings_heading", {"Meter settings", "電表設定"}},
    Caption{"energy_heading", {"Energy and demand", "電能與需量"}},
    // The switches and buttons above the chart.
    Caption{"chart_percent", {"Percent", "百分比"}},
    Caption{"chart_angle", {"Phase angle", "相位角"}},
    Caption{"chart_50", {"50 orders", "50 次"}},
    Caption{"chart_99", {"99 orders", "99 次"}},
    Caption{"chart_without_largest", {"Without largest", "不含最大次"}},
    Caption{"chart_copy", {"Copy picture", "複製圖片"}},
    Caption{"chart_copy_points", {"Copy points", "複製數據"}},
    Caption{"chart_save", {"Save picture", "儲存圖片"}},
};

struct Box {
  int left, top, width, height;  // design pixels
};

enum class Shown { yes, no };

// Everything except the right-hand column has this left edge, with this gap between panels.
constexpr int grid_left = 16;
constexpr int grid_width = 1110;
constexpr int gap = 8;

constexpr int row_height = 96;
constexpr int row_top(std::size_t phase) { return 64 + (row_height + gap) * static_cast<int>(phase); }

// Panel `index` of those that share the grid's width, `in_row` to a row.
constexpr Box in_grid(int index, int in_row, int top, int height) {
  const int column = index % in_row;
  const auto left = [in_row](int edge) { return grid_left + (grid_width + gap) * edge / in_row; };
  return {left(column), top + (height + gap) * (index / in_row), left(column + 1) - gap - left(column),
          height};
}

class Designer {
 public:
  Designer() : window("MeterRec") {}

  void place(DesignedControl designed, Box box, std::string text, Shown shown = Shown::yes) {
    Control control;
    control.text = std::move(text);
    control.visible = shown == Shown::yes;
    control.left = static_cast<float>(box.left) * units_per_pixel;
    control.top = static_cast<float>(box.top) * units_per_pixel;
    control.width = static_cast<float>(box.width) * units_per_pixel;
    control.height = static_cast<float>(box.height) * units_per_pixel;
    window.add(designed.name, std::move(control));
    design.push_back(std::move(designed));
  }

  void panel(const Panel& panel, Box box, std::string widest, int phase = -1, Shown shown = Shown::yes) {
    place({panel.label, ControlKind::label, phase, {}, {}}, box, panel.caption, shown);
    place({panel.value, ControlKind::value, phase, std::move(widest), panel.label}, box, {}, shown);
  }

  Window window;
  std::vector<DesignedControl> design;
};

void design_strip(Designer& to) {
  const auto pair = [&to](const std::string& title, const std::string& title_text, const std::string& value,
                          const std::string& value_text, int left, int width) {
    to.place({title, ControlKind::text, -1, {}, {}}, {left, 11, width, 18}, title_text);
    to.place({value, ControlKind::reading, -1, {}, title}, {left, 29, width, 24}, value_text);
  };
  to.place({"PQA_mode", ControlKind::reading, -1, {}, {}}, {16, 29, 196, 24}, "");
  pair("system_label", "System", "power_system", "", 218, 84);
  pair("Label1_0", "Sample", "Label1_1", "2.0 SEC", 308, 100);
  pair("Label1_2", "Time", "Label1_3", std::string(no_sampling_instant), 414, 94);
  pair("Label1_4", "Date", "Label1_5", "", 514, 120);
  to.place({"hold", ControlKind::reading, -1, {}, {}}, {644, 29, 70, 24}, "HOLD", Shown::no);
  to.place({"Warning", ControlKind::reading, -1, {}, {}}, {724, 29, 110, 24}, "No Com", Shown::no);
  to.place({"phasor_button", ControlKind::button, -1, {}, {}}, {946, 17, 104, 31}, "PHASOR");
  to.place({"record_button", ControlKind::button, -1, {}, {}}, {1060, 17, 100, 31}, "Record", Shown::no);
  to.place({"Command3D1", ControlKind::button, -1, {}, {}}, {1170, 17, 94, 31}, "Print");
}

// The widest text of each column, with its sign: it decides how large the digits can be.
constexpr std::array<std::string_view, 7> widest_of_quantity = {
    "000.0KV", "000.0mA", "-00.00KW", "-00.00KVA", "-00.00KVAR", "-0.00", "-000.0"};

void design_phases(Designer& to) {
  for (std::size_t phase = 0; phase < phase_count; ++phase) {
    const std::string digit = std::to_string(phase + 1);
    const int colour = static_cast<int>(phase);
    to.place({"L" + digit + "_name", ControlKind::reading, colour, {}, {}},
             {grid_left, row_top(phase), 28, row_height}, "L" + digit);
    const auto at = [phase](const DesignColumn& column) {
      return Box{column.left, row_top(phase), column.width, row_height};
    };
    to.panel(line_panel(phase), at(design_columns()[0]), "000.0KV", colour);
    for (const PhaseQuantity quantity : phase_quantities) {
      const auto index = static_cast<std::size_t>(quantity);
      to.panel(phase_panel(quantity, phase), at(design_columns()[index + 1]),
               std::string(widest_of_quantity[index]), colour);
    }
  }
}

void design_system(Designer& to) {
  constexpr int panels_in_row = 4;
  int index = 0;
  for (const Panel& panel : system_panels()) {
    to.panel(panel, in_grid(index, panels_in_row, 382, 74), "-00.00KVARH");
    ++index;
  }
  index = 0;
  for (const Panel& panel : unbalance_panels()) {
    to.panel(panel, in_grid(index, static_cast<int>(unbalance_panels().size()), 634, 84), "00.00%");
    ++index;
  }
}

void design_settings(Designer& to) {
  constexpr int left = 1134;
  constexpr int width = 130;
  constexpr int heading_width = 142;
  to.place({"settings_heading", ControlKind::text, -1, {}, {}}, {left, 64, heading_width, 20},
           "Meter settings");
  constexpr int top = 92;
  constexpr int pitch = 41;
  // In the order they are seen, which is also the order of the Tab key.
  std::array<SettingNames, meter_settings.size()> rows = meter_settings;
  std::ranges::sort(rows, {}, &SettingNames::row);
  for (const SettingNames& setting : rows) {
    const int row_top = top + pitch * setting.row;
    const std::string button(setting.button);
    to.place({button, ControlKind::button, -1, {}, {}}, {left, row_top, 58, 32},
             std::string(setting.caption));
    to.place({std::string(setting.box), ControlKind::edit_box, -1, {}, button},
             {left + 66, row_top, width - 66, 32}, "");
  }
  constexpr int below = top + pitch * static_cast<int>(meter_settings.size());
  to.place({"get_hz", ControlKind::button, -1, {}, {}}, {left, below + 4, width, 32}, "Update Now");
  to.place({"energy_heading", ControlKind::text, -1, {}, {}}, {left, below + 62, heading_width, 20},
           "Energy and demand");
  to.place({"reset_kwh", ControlKind::button, -1, {}, {}}, {left, below + 88, width, 32}, "<- Reset");
}

// In a row above the chart: what it shows on the left, where it can go on the right.
void design_chart_buttons(Designer& to) {
  constexpr int top = 64;
  constexpr int height = 30;
  const auto row = [&to](int left, auto buttons) {
    for (const auto& [name, text, width] : buttons) {
      to.place({name, ControlKind::button, -1, {}, {}}, {left, top, width, height}, text, Shown::no);
      left += width + gap;
    }
    return left;
  };
  using Button = std::tuple<const char*, const char*, int>;
  const int left = row(grid_left, std::array<Button, 5>{{{"chart_percent", "Percent", 84},
                                                         {"chart_angle", "Phase angle", 104},
                                                         {"chart_50", "50 orders", 92},
                                                         {"chart_99", "99 orders", 92},
                                                         {"chart_without_largest", "Without largest", 134}}});
  constexpr int output_left = 774;
  to.place({"chart_reference", ControlKind::text, -1, {}, {}},
           {left + gap, top, output_left - left - 2 * gap, height}, "", Shown::no);
  row(output_left, std::array<Button, 3>{{{"chart_copy", "Copy picture", 112},
                                          {"chart_copy_points", "Copy points", 112},
                                          {"chart_save", "Save picture", 112}}});
}

// The harmonics and waveform views cover the power panels while their chart is shown.
void design_harmonics(Designer& to) {
  to.place({"Harmo_Graph1", ControlKind::chart, -1, {}, {}}, {grid_left, 100, grid_width, 342}, "",
           Shown::no);
  design_chart_buttons(to);
  to.place({"HScroll1", ControlKind::scroll_bar, -1, {}, {}}, {grid_left, 450, grid_width, 22}, "",
           Shown::no);
  int index = 0;
  for (const Panel& panel : harmonic_cursor_panels())
    to.panel(panel, in_grid(index++, 4, 484, 70), "-000.0", -1, Shown::no);
  index = 0;
  for (const Panel& panel : wave_summary_panels()) {
    to.panel(panel, in_grid(index, 4, 562, 72), "-000.0mA", -1, Shown::no);
    ++index;
  }
}

void design_status_line(Designer& to) {
  for (const std::string_view name :
       {"status_port", "status_link", "status_rate", "status_recording", "status_hint"})
    to.place({std::string(name), ControlKind::status, -1, {}, {}}, {}, "");
}

void add_menus(Designer& to) {
  for (const MenuEntry& entry : menu_entries()) {
    to.place({entry.name, ControlKind::menu_item, -1, {}, {}}, {}, entry.caption);
    to.window.set_enabled(entry.name, entry.state == Entry::enabled);
  }
}

Designer design_main_window() {
  Designer designer;
  designer.window.set_caption("Halden");
  designer.window.set_captions(captions);
  designer.window.set_tooltips(main_window_tooltips());
  designer.window.set_accessible_names(main_window_accessible_names());
  design_strip(designer);
  design_phases(designer);
  design_system(designer);
  design_settings(designer);
  design_harmonics(designer);
  design_status_line(designer);
  add_menus(designer);
  return designer;
}

const Designer& designed_main_window() {
  static const Designer designer = design_main_window();
  return designer;
}

}  // namespace

std::span<const DesignedControl> main_window_design() { return designed_main_window().design; }

Window make_main_window() { return designed_main_window().window; }

}  // namespace halden
