// The rows of a power data file, live or downloaded. The columns are those of all wiring systems that the
// records of the file have; a record of a wiring without one of them leaves it empty.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "filetools/export/exported_kind.h"
#include "formats/power_file.h"

namespace halden {

class PowerExport : public ExportedKind {
 public:
  LineMeaning take(std::string_view line) override;
  void note_columns() override { has_[table_index(*wiring_)] = true; }
  std::vector<ValueColumn> columns() override;

  // Live records have "03-15-2024", downloaded ones "2024-03-15".
  DateOrder date_order(DateOrder) const override { return DateOrder::month_day_year; }

  std::string_view date_in(std::string_view line) const override;
  std::string_view time_in(std::string_view line) const override;
  void add_values(std::string_view line, ValueRow& row) override;

 private:
  bool has(PowerQuantity quantity) const;

  std::optional<Wiring> of_first_line_;  // for a file without records
  std::optional<Wiring> wiring_;         // of the record taken last
  std::array<bool, 4> has_{};            // by wiring
  std::vector<PowerQuantity> quantities_;
  std::array<std::vector<std::size_t>, 4> places_;  // in the record, of each quantity
};

}  // namespace halden
