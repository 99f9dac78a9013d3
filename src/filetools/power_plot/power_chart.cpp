#include "filetools/power_plot/power_chart.h"

#include <limits>
#include <utility>

#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_texts.h"

namespace halden {

namespace {

constexpr Text maximum_name = {"Maximum", "最大"};
constexpr Text minimum_name = {"Minimum", "最小"};
constexpr Text without_reading = {"No reading", "無讀值"};
constexpr Text nothing_to_draw = {"No record has a reading of {}", "沒有任何紀錄具有 {} 的讀值"};
constexpr Text described = {"{} over time. {}. {}", "{} 隨時間的變化。{}。{}"};

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

// "V2" and "Phase2" are drawn in the colour of phase 2; line voltages and system values belong to none.
std::optional<std::size_t> phase_of(std::size_t choice) {
  const auto last_line_voltage = static_cast<std::size_t>(PowerQuantity::V31);
  const auto first_system_value = static_cast<std::size_t>(PowerQuantity::W_SYS);
  if (choice <= last_line_voltage || choice >= first_system_value) return std::nullopt;
  return choice % phase_count;
}

std::vector<double> plotted_minima(const PowerPlot& plot, MissingReadings missing) {
  std::vector<double> values;
  values.reserve(plot.points.size());
  for (const PlotPoint& point : plot.points) values.push_back(point.minimum(missing).value_or(gap));
  return values;
}

std::vector<DataSet> data_sets(const PowerPlot& plot, MissingReadings missing, Language language) {
  const std::optional<std::size_t> phase = phase_of(plot.choice);
  const Points maxima = make_points(plotted_maxima(plot, missing));
  if (!plot.is_envelope) return {{maxima, std::string(plot_choices[plot.choice].caption), phase}};
  // The second set has no phase: it has to differ from the first.
  return {{maxima, std::string(maximum_name.in(language)), phase},
          {make_points(plotted_minima(plot, missing)), std::string(minimum_name.in(language)), {}}};
}

// Points with a record that is drawn as 0; none when these are left out.
PointFlags flags_of(const PowerPlot& plot, MissingReadings missing, Language language) {
  if (missing == MissingReadings::left_out || plot.without_reading() == 0) return {};
  std::vector<std::size_t> flagged;
  for (std::size_t point = 0; point < plot.points.size(); ++point)
    if (plot.points[point].readings < plot.points[point].records) flagged.push_back(point);
  return {std::make_shared<const std::vector<std::size_t>>(std::move(flagged)),
          std::string(without_reading.in(language))};
}

// The number of the last record that a point stands for.
std::string sequence_text(const PowerPlot& plot, std::size_t point) {
  return std::to_string(plot.records_of(point).last);
}

// A line without a time has its number. Where a recording goes over midnight the date stands below the time.
std::string time_text(const PowerPlot& plot, std::size_t point) {
  const PlotPoint& shown = plot.points[point];
  if (shown.time.empty()) return "#" + sequence_text(plot, point);
  const bool over_midnight = plot.whole.date != plot.last_date;
  return over_midnight && !shown.date.empty() ? shown.time + "\n" + shown.date : shown.time;
}

PointTexts labels_of(const std::shared_ptr<const PowerPlot>& plot, PlotLabels labels) {
  return texts_by([plot, labels](std::size_t point) {
    if (point >= plot->points.size()) return std::string();
    return labels == PlotLabels::time ? time_text(*plot, point) : sequence_text(*plot, point);
  });
}

// The records of the file around the plotted ones, as points of the same step.
void set_place(Chart& chart, const PowerPlot& plot) {
  const auto step = static_cast<double>(plot.record_step);
  chart.part = std::to_string(plot.range.first) + "/" + std::to_string(plot.record_step);
  chart.points_before = static_cast<double>(plot.range.first - 1) / step;
  chart.points_after = static_cast<double>(plot.record_count - plot.range.last) / step;
}

}  // namespace

std::string plot_y_title(const PowerPlot& plot) {
  const std::string caption(plot_choices[plot.choice].caption);
  const std::string unit = unit_of(plot.choice, plot.prefix);
  return unit.empty() ? caption : caption + " (" + unit + ")";
}

std::vector<double> plotted_maxima(const PowerPlot& plot, MissingReadings missing) {
  std::vector<double> values;
  values.reserve(plot.points.size());
  for (const PlotPoint& point : plot.points) values.push_back(point.maximum(missing).value_or(gap));
  return values;
}

Chart power_chart(std::shared_ptr<const PowerPlot> plot, const PlotLook& look, Language language) {
  Chart chart;
  chart.colours = look.colours;
  chart.x_title = look.x_title;
  chart.y_title = look.y_title;
  chart.description = described.with(language, {plot_y_title(*plot), plot_line(*plot, language),
                                                statistics_line(*plot, look.missing, language)});
  chart.hint = nothing_to_draw.with(language, {plot_choices[plot->choice].caption});
  chart.sets = data_sets(*plot, look.missing, language);
  chart.label_every = label_every(plot->points.size());
  chart.labels = labels_of(plot, look.labels);
  chart.readouts = texts_by([plot, missing = look.missing, language](std::size_t point) {
    return point_text(*plot, point, missing, language);
  });
  chart.flags = flags_of(*plot, look.missing, language);
  chart.grid = look.grid;
  chart.y_low = look.y_low;
  chart.y_high = look.y_high;
  if (plot->has_statistics()) chart.statistics = look.statistics;
  chart.statistic_names = statistic_names(language);
  chart.subject = look.subject;
  set_place(chart, *plot);
  return chart;
}

}  // namespace halden
