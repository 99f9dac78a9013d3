#include "filetools/export/power_export.h"

#include <string>

#include "formats/power_reader.h"

namespace halden {

namespace {

enum class Sign { never, possible };

struct ExportedQuantity {
  std::string_view name;
  std::string_view unit;
  Sign sign = Sign::possible;
};

// In the order of PowerQuantity.
constexpr std::array<ExportedQuantity, power_quantity_count> exported_quantities = {
    {{"V12", "V", Sign::never},
     {"V23", "V", Sign::never},
     {"V31", "V", Sign::never},
     {"V1", "V", Sign::never},
     {"V2", "V", Sign::never},
     {"V3", "V", Sign::never},
     {"I1", "A", Sign::never},
     {"I2", "A", Sign::never},
     {"I3", "A", Sign::never},
     {"P1", "W"},
     {"P2", "W"},
     {"P3", "W"},
     {"S1", "VA"},
     {"S2", "VA"},
     {"S3", "VA"},
     {"Q1", "var"},
     {"Q2", "var"},
     {"Q3", "var"},
     {"PF1", ""},
     {"PF2", ""},
     {"PF3", ""},
     {"Phase1", "deg"},
     {"Phase2", "deg"},
     {"Phase3", "deg"},
     {"W_SYS", "W"},
     {"VA_SYS", "VA"},
     {"VAR_SYS", "var"},
     {"PF_SYS", ""},
     {"WH_SYS", "Wh"},
     {"VAH_SYS", "VAh"},
     {"VARH_SYS", "varh"},
     {"PFH_SYS", ""},
     {"W_AD", "W"},
     {"VA_AD", "VA"},
     {"W_MD", "W"},
     {"VA_MD", "VA"}}};

const ExportedQuantity& exported(PowerQuantity quantity) {
  return exported_quantities[static_cast<std::size_t>(quantity)];
}

std::size_t place_of(Wiring wiring, PowerQuantity quantity) {
  constexpr std::size_t columns_before = 2;  // DATE and TIME
  const std::optional<std::size_t> column = power_column(wiring, quantity);
  return column ? (columns_before + *column) * (field_text_length + 1) : TableWriter::nowhere;
}

}  // namespace

LineMeaning PowerExport::take(std::string_view line) {
  wiring_ = whole_record_wiring(line);
  if (wiring_) return LineMeaning::record;
  if (line.starts_with(power_column_line(Wiring::w1p2w).substr(0, 2 * (field_text_length + 1))))
    return LineMeaning::column_names;
  const std::optional<Wiring> named = read_power_settings(line).wiring;
  if (!of_first_line_) of_first_line_ = named;
  return named || line.starts_with("????,") ? LineMeaning::settings : meaning_of_other(line);
}

bool PowerExport::has(PowerQuantity quantity) const {
  for (std::size_t wiring = 0; wiring < has_.size(); ++wiring)
    if (has_[wiring] && power_column(Wiring(wiring), quantity)) return true;
  return false;
}

std::vector<ValueColumn> PowerExport::columns() {
  if (has_ == std::array<bool, 4>{} && of_first_line_) has_[table_index(*of_first_line_)] = true;
  std::vector<ValueColumn> columns;
  for (std::size_t index = 0; index < power_quantity_count; ++index) {
    const auto quantity = static_cast<PowerQuantity>(index);
    if (!has(quantity)) continue;
    quantities_.push_back(quantity);
    columns.push_back({std::string(exported(quantity).name), std::string(exported(quantity).unit)});
    for (std::size_t wiring = 0; wiring < has_.size(); ++wiring)
      places_[wiring].push_back(place_of(Wiring(wiring), quantity));
  }
  return columns;
}

std::string_view PowerExport::date_in(std::string_view line) const { return date_in_line(line); }
std::string_view PowerExport::time_in(std::string_view line) const { return time_in_line(line); }

// A field has ten characters: of a longer text the first ones are cut.
void PowerExport::add_values(std::string_view line, ValueRow& row) {
  const std::vector<std::size_t>& places = places_[table_index(*wiring_)];
  row.add_fields(line, places);
  for (std::size_t column = 0; column < places.size(); ++column) {
    if (places[column] == TableWriter::nowhere) continue;
    const char first = line[places[column]];
    if (first != ' ' && first != '-' && exported(quantities_[column]).sign == Sign::possible)
      row.note_cut_sign(column);
  }
}

}  // namespace halden
