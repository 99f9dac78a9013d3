#include "filetools/power_plot/points_csv.h"

#include <optional>
#include <string_view>

#include "chart/number_text.h"
#include "filetools/power_plot/plot_choices.h"

namespace halden {

namespace {

constexpr std::string_view head = "first_record,last_record,date,time,maximum,minimum,readings,unit\n";

void add_value(std::string& lines, const std::optional<double>& value) {
  if (value) lines += exact_number(*value);
  lines += ',';
}

}  // namespace

std::string points_csv(const PowerPlot& plot, MissingReadings missing) {
  const std::string unit = unit_of(plot.choice, plot.prefix) + "\n";
  std::string lines(head);
  for (std::size_t index = 0; index < plot.points.size(); ++index) {
    const PlotPoint& point = plot.points[index];
    const RecordRange records = plot.records_of(index);
    lines += std::to_string(records.first) + "," + std::to_string(records.last) + ",";
    lines += point.date + "," + point.time + ",";
    add_value(lines, point.maximum(missing));
    add_value(lines, point.minimum(missing));
    lines += std::to_string(point.readings) + "," + unit;
  }
  return lines;
}

}  // namespace halden
