// How the lines of one kind of data file become rows of numbers. Each kind implements it; reading the lines
// and writing the rows is common to all (filetools/export/number_export.h).
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "filetools/export/export_options.h"
#include "filetools/export/value_row.h"

namespace halden {

// A line behind the first header lines. Each is a row with the number of the record, as the other file tools
// count them; only a record has values.
enum class LineMeaning { record, settings, column_names, lost_link, no_record };

class ExportedKind {
 public:
  virtual ~ExportedKind() = default;

  // How many header lines stand before the first record. They are given to `take` too.
  virtual std::size_t header_lines() const { return 2; }

  // What the line is. The settings in a line hold for the records behind it.
  virtual LineMeaning take(std::string_view line) = 0;

  // ---- first pass ----
  // Takes note of the columns that the record taken last needs: all rows of a table have the same columns,
  // also when a recording was continued with other settings.
  virtual void note_columns() = 0;

  // After the first pass.
  virtual std::vector<ValueColumn> columns() = 0;

  // ---- second pass ----
  // The order of dates whose year stands at the end.
  virtual DateOrder date_order(DateOrder chosen) const { return chosen; }

  // As they stand in the line; empty when they do not.
  virtual std::string_view date_in(std::string_view line) const = 0;
  virtual std::string_view time_in(std::string_view line) const = 0;

  // Writes the values of the record taken last, something for each column.
  virtual void add_values(std::string_view line, ValueRow& row) = 0;

  // Whether range and clamp of the options were used.
  virtual bool scales_currents() const { return false; }
};

// By the first line of a file; nothing for a file that is no data file of this program.
std::unique_ptr<ExportedKind> exported_kind(std::string_view first_line, const ExportOptions& options);

// What any line is that is neither a record nor a header line.
LineMeaning meaning_of_other(std::string_view line);

}  // namespace halden
