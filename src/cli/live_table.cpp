#include "cli/live_table.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::size_t title_width = 12;
constexpr std::size_t value_width = 12;

// Sequences that every terminal of today obeys.
constexpr std::string_view escape = "\x1b[";
constexpr std::string_view erase_line = "\x1b[K";
constexpr std::string_view erase_below = "\x1b[J";

// Values side by side: the names of their panels, empty where there is none.
struct Row {
  std::string_view title;
  std::vector<std::string_view> panels;
};

// Energy, average and maximum demand of each power; unbalance, zero and negative sequence.
const std::array<Row, 4> sums = {{{"W", {"WH_sys_value", "W_AD_value", "W_MD_value"}},
                                  {"VA", {"VAH_sys_value", "VA_AD_value", "VA_MD_value"}},
                                  {"VAR", {"VARH_sys_value"}},
                                  {"PF", {"PFH_sys_value"}}}};
const std::array<Row, 2> unbalance = {
    {{"V", {"VUR_value", "d0_v_value", "d2_v_value"}}, {"I", {"IUR_value", "d0_i_value", "d2_i_value"}}}};

std::vector<Row> rows_of_phases() {
  struct Names {
    std::string_view title, system;
  };
  // In the order of PhaseQuantity.
  constexpr std::array<Names, phase_quantities.size()> names = {{{"V", ""},
                                                                 {"I", ""},
                                                                 {"W", "W_sys_value"},
                                                                 {"VA", "VA_sys_value"},
                                                                 {"VAR", "VAR_sys_value"},
                                                                 {"PF", "PF_sys_value"},
                                                                 {"Phase", ""}}};
  std::vector<Row> rows;
  for (const PhaseQuantity quantity : phase_quantities) {
    const Names& named = names[static_cast<std::size_t>(quantity)];
    rows.push_back({named.title, {}});
    for (std::size_t phase = 0; phase < phase_count; ++phase)
      rows.back().panels.push_back(phase_panel(quantity, phase).value);
    rows.back().panels.push_back(named.system);
  }
  rows.push_back({"V12 V23 V31", {}});
  for (std::size_t line = 0; line < phase_count; ++line) rows.back().panels.push_back(line_panel(line).value);
  return rows;
}

std::string text_of(const Window& window, std::string_view panel) {
  if (panel.empty() || !window[panel].visible) return {};
  return window[panel].text;
}

// The title at the left, the values flush right in their columns, no blanks behind the last one.
std::string line_of(std::string_view title, const std::vector<std::string>& values) {
  std::string line(title);
  line.resize(std::max(line.size(), title_width), ' ');
  for (const std::string& value : values)
    line += std::string(value_width - std::min(value.size(), value_width - 1), ' ') + value;
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

// A blank line, the column titles and the rows.
void add_block(const Window& window, const std::vector<std::string>& titles, std::span<const Row> rows,
               std::vector<std::string>& lines) {
  std::vector<std::string> shown_titles(titles.size());
  std::vector<std::string> shown_rows;
  for (const Row& row : rows) {
    std::vector<std::string> values;
    for (const std::string_view panel : row.panels) values.push_back(text_of(window, panel));
    if (std::ranges::all_of(values, &std::string::empty)) continue;
    for (std::size_t column = 0; column < values.size(); ++column)
      if (!values[column].empty()) shown_titles[column] = titles[column];
    shown_rows.push_back(line_of(row.title, values));
  }
  if (shown_rows.empty()) return;
  lines.push_back("");
  lines.push_back(line_of("", shown_titles));
  lines.insert(lines.end(), shown_rows.begin(), shown_rows.end());
}

}  // namespace

std::vector<std::string> live_table(const Window& meter_rec, const std::string& time) {
  std::vector<std::string> lines = {time + "  " + meter_rec["power_system"].text};
  add_block(meter_rec, {"Phase 1", "Phase 2", "Phase 3", "System"}, rows_of_phases(), lines);
  add_block(meter_rec, {"Energy", "Demand AD", "Demand MD"}, sums, lines);
  add_block(meter_rec, {"Unbalance", "d0%", "d2%"}, unbalance, lines);
  return lines;
}

std::string RedrawnLines::draw(const std::vector<std::string>& lines) {
  std::string sent;
  if (drawn()) sent.append(escape).append(std::to_string(drawn_)).append("A\r");
  for (const std::string& line : lines) sent.append(line).append(erase_line).append("\n");
  drawn_ = lines.size();
  return sent.append(erase_below);
}

std::string RedrawnLines::add(const std::string& line) {
  ++drawn_;
  return line + "\n";
}

std::string RedrawnLines::clear_below() const {
  return drawn() ? "\r" + std::string(erase_below) : std::string();
}

}  // namespace halden
