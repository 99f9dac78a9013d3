#include "filetools/power_plot/plot_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "chart/number_text.h"
#include "filetools/file_name.h"
#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/power_chart.h"

namespace halden {

namespace {

constexpr std::string_view separator = " · ";

constexpr Text all_records = {"{} records", "{} 筆紀錄"};
constexpr Text part_of_records = {"records {} to {} of {}", "第 {} 至 {} 筆，共 {} 筆"};
constexpr Text lost_records = {"{} lost", "遺失 {} 筆"};
constexpr Text header_lines = {"{} header lines", "{} 行檔頭"};
constexpr Text from_to = {"{} to {}", "{} 至 {}"};

constexpr Text one_as_zero = {"1 record without a reading is drawn as 0", "1 筆無讀值的紀錄以 0 繪出"};
constexpr Text many_as_zero = {"{} records without a reading are drawn as 0", "{} 筆無讀值的紀錄以 0 繪出"};
constexpr Text one_left_out = {"1 record without a reading is left out", "1 筆無讀值的紀錄未繪出"};
constexpr Text many_left_out = {"{} records without a reading are left out", "{} 筆無讀值的紀錄未繪出"};

constexpr Text mean_is = {"Mean {}", "平均 {}"};
constexpr Text minimum_is = {"minimum {}", "最小 {}"};
constexpr Text maximum_is = {"maximum {}", "最大 {}"};
constexpr Text deviation_is = {"standard deviation {}", "標準差 {}"};
constexpr Text best_fit_is = {"best fit {} → {}", "最佳擬合 {} → {}"};

constexpr Text of_record = {"record {}: {}", "第 {} 筆：{}"};
constexpr Text of_records = {"records {} to {}: maximum {}, minimum {}", "第 {} 至 {} 筆：最大 {}，最小 {}"};
constexpr Text of_group = {"records {} to {}: {}", "第 {} 至 {} 筆：{}"};
constexpr Text no_reading = {"no reading", "無讀值"};
constexpr Text some_missing = {" ({} without a reading)", "（{} 筆無讀值）"};

std::string with_unit(std::string number, const PowerPlot& plot) {
  const std::string unit = unit_of(plot.choice, plot.prefix);
  return unit.empty() ? number : number + " " + unit;
}

std::string exact_text(double value, const PowerPlot& plot) { return with_unit(exact_number(value), plot); }

std::string short_text(double value, const PowerPlot& plot) {
  const double largest = std::max(std::abs(plot.whole.largest), std::abs(plot.whole.smallest));
  return with_unit(short_number(value, largest), plot);
}

std::string joined(std::string_view date, std::string_view time) {
  const std::string_view gap = date.empty() || time.empty() ? "" : " ";
  return std::string(date).append(gap).append(time);
}

void add(std::string& line, std::string_view part) {
  line.append(line.empty() ? "" : separator).append(part);
}

std::string records_text(const PowerPlot& plot, Language language) {
  const std::string count = std::to_string(plot.record_count);
  if (plot.range == RecordRange{1, plot.record_count}) return all_records.with(language, {count});
  return part_of_records.with(language,
                              {std::to_string(plot.range.first), std::to_string(plot.range.last), count});
}

}  // namespace

std::string plot_line(const PowerPlot& plot, Language language) {
  constexpr std::array<std::string_view, 4> wirings = {"1P2W", "1P3W", "3P3W", "3P4W"};
  std::string line(name_of_file(plot.path));
  if (plot.settings.wiring) add(line, wirings[table_index(*plot.settings.wiring)]);
  if (!plot.settings.ct.empty()) add(line, "CT " + plot.settings.ct);
  if (!plot.settings.vt.empty()) add(line, "VT " + plot.settings.vt);
  add(line, records_text(plot, language));
  add(line, lost_records.with(language, {std::to_string(plot.lost_records)}));
  if (plot.header_lines > 0) add(line, header_lines.with(language, {std::to_string(plot.header_lines)}));
  const std::string from = joined(plot.whole.date, plot.whole.time);
  if (!from.empty()) add(line, from_to.with(language, {from, joined(plot.last_date, plot.last_time)}));
  return line;
}

std::string missing_readings_line(const PowerPlot& plot, MissingReadings missing, Language language) {
  const std::size_t count = plot.without_reading();
  if (count == 0) return {};
  const bool as_zero = missing == MissingReadings::as_zero;
  if (count == 1) return std::string((as_zero ? one_as_zero : one_left_out).in(language));
  return (as_zero ? many_as_zero : many_left_out).with(language, {std::to_string(count)});
}

std::string statistics_line(const PowerPlot& plot, MissingReadings missing, Language language) {
  const std::optional<double> mean = plot.mean(missing);
  if (!mean) return {};
  std::string line = mean_is.with(language, {short_text(*mean, plot)});
  add(line, minimum_is.with(language, {exact_text(*plot.whole.minimum(missing), plot)}));
  add(line, maximum_is.with(language, {exact_text(*plot.whole.maximum(missing), plot)}));
  if (plot.is_envelope) return line;
  const std::vector<double> values = plotted_maxima(plot, missing);
  const Summary summary = summarise(values).value_or(Summary{});
  const double last_x = static_cast<double>(values.size() - 1);
  add(line, deviation_is.with(language, {short_text(summary.deviation, plot)}));
  add(line, best_fit_is.with(language, {short_text(summary.fit_offset, plot),
                                        short_text(summary.fit_offset + summary.fit_slope * last_x, plot)}));
  return line;
}

std::string point_text(const PowerPlot& plot, std::size_t index, MissingReadings missing, Language language) {
  if (index >= plot.points.size()) return {};
  const PlotPoint& point = plot.points[index];
  const RecordRange records = plot.records_of(index);
  const std::string first = std::to_string(records.first);
  std::string text = joined(point.date, point.time);
  if (!text.empty()) text += ", ";
  const std::string last = std::to_string(records.last);
  const std::string_view none = no_reading.in(language);
  if (point.readings == 0 && point.records > 1) return text + of_group.with(language, {first, last, none});
  if (point.readings == 0) return text + of_record.with(language, {first, none});
  const std::string maximum = exact_text(*point.maximum(missing), plot);
  if (point.records == 1) return text + of_record.with(language, {first, maximum});
  text += of_records.with(language, {first, last, maximum, exact_text(*point.minimum(missing), plot)});
  if (point.readings == point.records) return text;
  return text + some_missing.with(language, {std::to_string(point.records - point.readings)});
}

StatisticNames statistic_names(Language language) {
  const auto text = [language](const Text& both) { return std::string(both.in(language)); };
  return {text({"Mean", "平均"}),         text({"Minimum", "最小"}),      text({"Maximum", "最大"}),
          text({"Mean + σ", "平均 + σ"}), text({"Mean - σ", "平均 - σ"}), text({"Best fit", "最佳擬合"})};
}

}  // namespace halden
