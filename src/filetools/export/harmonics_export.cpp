#include "filetools/export/harmonics_export.h"

#include <algorithm>
#include <string>

#include "readings/wave_texts.h"

namespace halden {

namespace {

constexpr std::array<const char*, 2> option_units = {"percent", "deg"};

}  // namespace

LineMeaning HarmonicsExport::take(std::string_view line) {
  line_ = read_harmonics_line(line);
  return take_wave_line(line, line_.kind, settings_);
}

// Where the header does not name the input, the unit of a text does.
InputUnit HarmonicsExport::unit() const {
  const std::optional<int> channel = channel_of(settings_.input);
  const bool is_ampere = channel ? is_current(*channel) : unit_of(line_.rms).ends_with('A');
  return is_ampere ? InputUnit::ampere : InputUnit::volt;
}

void HarmonicsExport::note_columns() {
  summary_.note(unit());
  if (!line_.first_order) return;
  Orders& orders = orders_[option()];
  const std::size_t end = first_order() + line_.order_count;
  orders.begin = orders.end == 0 ? first_order() : std::min(orders.begin, first_order());
  orders.end = std::max(orders.end, end);
}

std::vector<ValueColumn> HarmonicsExport::columns() {
  std::vector<ValueColumn> columns;
  summary_.add_to(columns);
  columns.push_back({"RANGE", ""});
  for (std::size_t option = 0; option < orders_.size(); ++option)
    for (std::size_t order = orders_[option].begin; order < orders_[option].end; ++order)
      columns.push_back({"H" + std::to_string(order), option_units[option]});
  return columns;
}

// A line that was half written in the first pass may have an input that has no columns. Orders of an unknown
// range have no number.
void HarmonicsExport::add_values(std::string_view, ValueRow& row) {
  if (!summary_.has(unit())) return;
  summary_.add_values(
      {settings_.input, line_.rms, line_.peak_plus, line_.peak_minus, line_.fundamental, line_.thd, line_.hz},
      unit(), row);
  row.add_text(line_.range);
  places_.clear();
  for (std::size_t of_columns = 0; of_columns < orders_.size(); ++of_columns)
    for (std::size_t order = orders_[of_columns].begin; order < orders_[of_columns].end; ++order) {
      const bool is_there = line_.first_order && of_columns == option() && order >= first_order() &&
                            order < first_order() + line_.order_count;
      places_.push_back(is_there ? (order - first_order()) * (field_text_length + 1) : TableWriter::nowhere);
    }
  row.add_fields(line_.order_fields, places_);
}

}  // namespace halden
