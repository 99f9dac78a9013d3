// The rows of a power data file, live or downloaded. The columns are those of all wiring systems that the
// records of the file have; a record of a wiring without one of them leaves it empty.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "filetools/export/exported_kind.h"
#include "filetools/export/row_note.h"
#include "formats/power_file.h"

namespace halden {

class PowerExport : public ExportedKind {
 public:
  LineMeaning take(std::string_view line) override;
  void note_columns() override { has_[table_index(*wiring_)] = true; }
  std::vector<std::string> columns() override;

  // Live records have "03-15-2024", downloaded ones "2024-03-15".
  DateOrder date_order(DateOrder) const override { return DateOrder::month_day_year; }

  std::string_view date_in(std::string_view line) const override;
  std::string_view time_in(std::string_view line) const override;
  std::size_t add_values(std::string_view line, TableWriter& row) override;
  std::string_view note() override { return note_.text(); }

 private:
  void note_cut_signs(std::string_view line);

  std::optional<Wiring> of_first_line_;  // for a file without records
  std::optional<Wiring> wiring_;         // of the record taken last
  std::array<bool, 4> has_{};            // by wiring
  std::vector<PowerQuantity> quantities_;
  std::array<std::vector<std::size_t>, 4> places_;  // in the record, of each quantity
  std::vector<std::size_t> missing_;
  RowNote note_{{}};
};

}  // namespace halden
