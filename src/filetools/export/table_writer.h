// A table of numbers as CSV or as a JSON array of objects, written row by row into a file of any length.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "filetools/export/export_options.h"
#include "formats/plain_number.h"
#include "platform/files.h"

namespace halden {

class TableWriter {
 public:
  // `file` outlives this. The names are plain ASCII without quotes and separators.
  TableWriter(FileWriter& file, const ExportOptions& options, const std::vector<std::string>& names);

  // ---- a row: begin_row, then something for each column in its order, then end_row ----
  void begin_row();
  void add_count(std::size_t count);
  void add_nothing();

  // At most 1024 characters; what is no printable ASCII becomes "?".
  void add_text(std::string_view text);

  // The number of a recorded field; nothing and false when it has none.
  bool add_field(std::string_view field);

  // counts x 10^exponent
  void add_number(std::int64_t counts, int exponent);

  // Those of several columns, from their places in a record. Nothing stands in a column whose place is
  // `nowhere`. Returns how many have a number; `missing` gets the indices of the others.
  static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
  std::size_t add_fields(std::string_view record, std::span<const std::size_t> places,
                         std::vector<std::size_t>& missing);

  void end_row();

  // Writes the rest. Afterwards the table is whole, unless something failed.
  FileFailure finish();
  FileFailure failure() const { return failure_; }

 private:
  char* write_before(std::size_t column, char* to) const;
  char* write_null(char* to) const;
  void write_header(const std::vector<std::string>& names);
  void append(std::string_view text);
  void flush();

  FileWriter& file_;
  const TableFormat format_;
  const char point_;
  const char separator_;
  const std::array<std::uint8_t, 256> needs_quotes_;  // by character
  std::vector<std::string> before_;  // what stands before each value: a separator, in JSON also the name
  std::size_t rows_ = 0;
  std::size_t column_ = 0;  // the next one of the row
  std::unique_ptr<char[]> buffer_;
  char* at_;
  char* flush_from_;  // a row that begins behind it may not fit any more
  FileFailure failure_ = FileFailure::none;
};

}  // namespace halden
