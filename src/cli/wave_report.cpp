#include "cli/wave_report.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

#include "chart/waves/waveform_chart.h"
#include "readings/numbers.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

using OrderValues = std::array<float, harmonic_orders>;

constexpr std::size_t orders_in_line = 10;
constexpr std::size_t title_width = 5;
constexpr std::size_t order_width = 7;
constexpr std::size_t summary_width = 12;

// All of the summary but date and time, which are those of the sampling instant.
std::span<const Panel> summary_panels() { return wave_summary_panels().first(6); }

Record head_of_record(const Window& meter_rec, const std::string& time, int channel, const WaveTexts& texts) {
  Record record = {{"time", time}, {"input", input_name(channel)}};
  for (const Panel& panel : summary_panels()) record[panel.value] = meter_rec[panel.value].text;
  record["hz"] = texts.hz;
  return record;
}

std::string order_text(float value) { return format_float(value, "##0.0"); }

Record numbers_of(const OrderValues& values) {
  Record numbers = Record::array();
  for (const float value : values) numbers.push_back(leading_number(order_text(value)));
  return numbers;
}

std::string right_aligned(std::string_view text, std::size_t width) {
  return std::string(width - std::min(text.size(), width), ' ').append(text);
}

std::string left_aligned(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

void add_summary(const Window& meter_rec, std::vector<std::string>& lines) {
  constexpr std::size_t panels_in_line = 3;
  const std::span<const Panel> panels = summary_panels();
  for (std::size_t first = 0; first < panels.size(); first += panels_in_line) {
    std::string line;
    for (const Panel& panel : panels.subspan(first, panels_in_line))
      line += (line.empty() ? "" : "   ") + left_aligned(panel.caption, title_width + order_width) +
              right_aligned(meter_rec[panel.value].text, summary_width);
    lines.push_back(line);
  }
}

void add_orders(const std::string& title, const OrderValues& values, std::vector<std::string>& lines) {
  lines.push_back("");
  std::string line = left_aligned(title, title_width);
  for (std::size_t order = 0; order < orders_in_line; ++order)
    line += right_aligned(std::to_string(order), order_width);
  for (std::size_t order = 0; order < values.size(); ++order) {
    if (order % orders_in_line == 0) {
      lines.push_back(line);
      line = left_aligned(right_aligned(std::to_string(order), 2), title_width);
    }
    line += right_aligned(order_text(values[order]), order_width);
  }
  lines.push_back(line);
}

}  // namespace

Record spectrum_record(const SpectrumView& view, const Window& meter_rec, const std::string& time) {
  Record record = head_of_record(meter_rec, time, view.source().channel, view.texts());
  record["harmonic_percent"] = numbers_of(view.values().percent);
  record["harmonic_angle"] = numbers_of(view.values().angle);
  return record;
}

Record samples_record(const WaveformView& view, const Window& meter_rec, const std::string& time) {
  Record record = head_of_record(meter_rec, time, view.source().channel, view.texts());
  const std::string_view peak = scale_peak(view.samples(), view.texts());
  record["unit"] = unit_of(peak);
  Record samples = Record::array();
  for (const double sample : view.samples()) samples.push_back(leading_number(sample_text(sample, peak)));
  record["samples"] = std::move(samples);
  return record;
}

std::vector<std::string> spectrum_table(const SpectrumView& view, const Window& meter_rec,
                                        const std::string& time, OrderTables tables) {
  std::vector<std::string> lines = {time + "  " + std::string(input_name(view.source().channel)) + "  " +
                                    view.texts().hz};
  lines.push_back("");
  add_summary(meter_rec, lines);
  add_orders("%", view.values().percent, lines);
  if (tables == OrderTables::percent_and_angle) add_orders("Angle", view.values().angle, lines);
  return lines;
}

}  // namespace halden
