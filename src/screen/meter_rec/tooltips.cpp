#include "screen/meter_rec/tooltips.h"

#include <array>
#include <span>
#include <vector>

#include "screen/meter_rec/panels.h"
#include "screen/meter_rec/settings.h"

namespace halden {

namespace {

// In the order of PhaseQuantity.
constexpr std::array<Text, phase_quantities.size()> of_phases = {
    {{"Voltage of this phase, RMS", "本相電壓（有效值）"},
     {"Current of this phase, RMS", "本相電流（有效值）"},
     {"Active power of this phase", "本相有效功率"},
     {"Apparent power of this phase, with the sign of the active power", "本相視在功率，正負號同有效功率"},
     {"Reactive power of this phase, positive when the voltage leads", "本相無效功率，電壓領先時為正"},
     {"Power factor of this phase: W to VA", "本相功率因數：W / VA"},
     {"Angle from the current to the voltage of this phase in degrees, positive when the voltage leads",
      "本相電壓與電流的相角（度），電壓領先時為正"}}};

constexpr Text of_lines = {"Voltage between two phases, RMS", "兩相之間的線電壓（有效值）"};

// In the order of system_panels().
constexpr std::array<Text, 12> of_system = {
    {{"Active power of all phases", "總有效功率"},
     {"Apparent power of all phases, from W (SYS) and VAR (SYS)", "總視在功率，由 W (SYS) 與 VAR (SYS) 求得"},
     {"Reactive power of all phases", "總無效功率"},
     {"Power factor of all phases: W (SYS) to VA (SYS)", "總功率因數：W (SYS) / VA (SYS)"},
     {"Active energy since the last reset", "歸零後的有效電能"},
     {"Apparent energy since the last reset", "歸零後的視在電能"},
     {"Reactive energy since the last reset", "歸零後的無效電能"},
     {"Mean power factor since the last reset: WH (SYS) to VAH (SYS)",
      "歸零後的平均功率因數：WH (SYS) / VAH (SYS)"},
     {"Average demand: mean active power of the last complete demand period (MD minutes)",
      "平均需量：前一個完整需量週期（MD 分鐘）的平均有效功率"},
     {"Average demand: mean apparent power of the last complete demand period (MD minutes)",
      "平均需量：前一個完整需量週期（MD 分鐘）的平均視在功率"},
     {"Maximum demand: highest mean active power of all demand periods since the last reset",
      "最大需量：歸零後各需量週期平均有效功率的最大值"},
     {"Maximum demand: highest mean apparent power of all demand periods since the last reset",
      "最大需量：歸零後各需量週期平均視在功率的最大值"}}};

// In the order of unbalance_panels().
constexpr std::array<Text, 6> of_unbalance = {
    {{"Largest deviation of a line voltage from the mean of the three. Motors: usually at most 1 %",
      "線電壓與三者平均值的最大偏差。電動機通常不超過 1 %"},
     {"Zero-sequence to positive-sequence voltage", "零序電壓與正序電壓之比"},
     {"Negative-sequence to positive-sequence voltage. Public networks: usually at most 2 % (EN 50160)",
      "負序電壓與正序電壓之比。公共電網通常不超過 2 %（EN 50160）"},
     {"Largest deviation of a phase current from the mean of the three", "相電流與三者平均值的最大偏差"},
     {"Zero-sequence to positive-sequence current", "零序電流與正序電流之比"},
     {"Negative-sequence to positive-sequence current", "負序電流與正序電流之比"}}};

// In the order of Setting.
constexpr std::array<Text, meter_settings.size()> of_boxes = {
    {{"Ratio of the current transformers. Enter sends it to the meter", "比流器變比。按 Enter 傳送至電表"},
     {"Ratio of the voltage transformers. Enter sends it to the meter", "比壓器變比。按 Enter 傳送至電表"},
     {"Demand period in minutes. Enter sends it to the meter", "需量週期（分鐘）。按 Enter 傳送至電表"},
     {"Sampling time of the meter's datalogger in seconds, an even number. Enter sends it to the meter",
      "電表記錄器的取樣秒數，須為偶數。按 Enter 傳送至電表"},
     {"Frequency of the mains: 50 or 60 Hz, anything else is automatic. Enter sends it to the meter",
      "電源頻率：50 或 60 Hz，其他為自動。按 Enter 傳送至電表"}}};

constexpr Text sends = {
    "Sends this setting to the meter: takes about 15 s and sets energies and demands to 0",
    "將此設定傳送至電表：約需 15 秒，電能與需量歸零"};

constexpr Text sampling = {"Sampling time of this program; double-click to change it",
                           "本程式的取樣秒數；按兩下可變更"};
constexpr Text instant = {"Time of the last sampling instant", "最近一次取樣的時間"};

constexpr std::array of_others = {
    Caption{"power_system", {"Wiring system of the meter", "電表的接線方式"}},
    Caption{"Label1_0", sampling},
    Caption{"Label1_1", sampling},
    Caption{"Label1_2", instant},
    Caption{"Label1_3", instant},
    Caption{"Warning", {"The meter does not answer", "電表無回應"}},
    Caption{"phasor_button", {"Opens the phasor diagram", "開啟向量圖"}},
    Caption{"record_button", {"Records the next reading", "記錄下一筆讀值"}},
    Caption{"Command3D1", {"Prints this window", "列印本視窗"}},
    Caption{"get_hz",
            {"Reads the settings of the meter: takes about 10 s and sets energies and demands to 0",
             "讀取電表的設定：約需 10 秒，電能與需量歸零"}},
    Caption{"reset_kwh", {"Sets energies and demands to 0", "電能與需量歸零"}},
    Caption{"HScroll1", {"The order whose values stand below", "下方顯示其數值的次數"}},
    Caption{"har_index_value", {"The order of the cursor", "游標所在的次數"}},
    Caption{"har_percent_value",
            {"Magnitude of this order, in percent of the largest one", "此次諧波的大小，以最大次為 100 %"}},
    Caption{"har_angle_value",
            {"Phase angle of this order in degrees; 0 below 1 %", "此次諧波的相位角（度）；低於 1 % 為 0"}},
    Caption{"har_hz_value", {"Frequency of this order in Hz", "此次諧波的頻率（Hz）"}},
    Caption{"RMS_value", {"Effective value of the input", "輸入的有效值"}},
    Caption{"PEAK_P_value", {"Highest value of a cycle", "一週期的最高值"}},
    Caption{"PEAK_N_value", {"Lowest value of a cycle", "一週期的最低值"}},
    Caption{"CF_value",
            {"Crest factor: positive peak over effective value; 1.41 of a sine wave",
             "波峰因數：正峰值除以有效值；正弦波為 1.41"}},
    Caption{"THD_F_value",
            {"Total harmonic distortion, in percent of the fundamental", "總諧波失真，以基本波為 100 %"}},
    Caption{"VI_of_1_value", {"Effective value of the fundamental", "基本波的有效值"}},
    Caption{"DATE_wave_value", {"Date of the sampling instant", "取樣的日期"}},
    Caption{"TIME_wave_value", {"Time of the sampling instant", "取樣的時間"}},
    Caption{"chart_percent",
            {"Shows the orders in percent of the largest one", "以最大次的百分比顯示各次諧波"}},
    Caption{"chart_angle", {"Shows the phase angles of the orders", "顯示各次諧波的相位角"}},
    Caption{"chart_50", {"Shows the orders up to 51", "顯示至第 51 次"}},
    Caption{"chart_99", {"Shows the orders up to 99", "顯示至第 99 次"}},
    Caption{
        "chart_without_largest",
        {"Leaves out the largest order, so that small ones can be seen", "不顯示最大次，以便觀察較小的次數"}},
    Caption{"chart_reference",
            {"In the chart the wheel zooms, dragging moves, a double click shows the whole",
             "在圖表中，滾輪縮放，拖曳移動，按兩下顯示全部"}},
    Caption{"chart_copy", {"Copies the chart as a picture", "將圖表複製為圖片"}},
    Caption{"chart_copy_points",
            {"Copies the values of the chart for a spreadsheet", "複製圖表的數值供試算表使用"}},
    Caption{"chart_save", {"Saves the chart as PNG, SVG or PDF", "將圖表儲存為 PNG、SVG 或 PDF"}}};

void add_in_order(std::vector<Caption>& to, std::span<const Panel> panels, std::span<const Text> texts) {
  for (std::size_t index = 0; index < panels.size(); ++index)
    to.push_back({panels[index].value, texts[index]});
}

std::vector<Caption> make_tooltips() {
  std::vector<Caption> tooltips(of_others.begin(), of_others.end());
  for (std::size_t phase = 0; phase < phase_count; ++phase) {
    tooltips.push_back({line_panel(phase).value, of_lines});
    for (const PhaseQuantity quantity : phase_quantities)
      tooltips.push_back({phase_panel(quantity, phase).value, of_phases[static_cast<std::size_t>(quantity)]});
  }
  add_in_order(tooltips, system_panels(), of_system);
  add_in_order(tooltips, unbalance_panels(), of_unbalance);
  for (const SettingNames& names : meter_settings) {
    tooltips.push_back({names.button, sends});
    tooltips.push_back({names.box, of_boxes[static_cast<std::size_t>(names.setting)]});
  }
  return tooltips;
}

}  // namespace

std::span<const Caption> main_window_tooltips() {
  static const std::vector<Caption> tooltips = make_tooltips();
  return tooltips;
}

}  // namespace halden
