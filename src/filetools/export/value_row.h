// The values of one row, and what the column "note" says about them: which have no number, and why.
//
//   "over range: V1 I1 / no value: W_MD VA_MD / a sign may be cut: VARH_SYS"
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "filetools/export/table_writer.h"

namespace halden {

struct ValueColumn {
  std::string quantity;  // "W_SYS"
  std::string unit;      // "W", empty for a number without unit and for a text

  std::string name() const { return unit.empty() ? quantity : quantity + "_" + unit; }
};

class ValueRow {
 public:
  // Both outlive this.
  ValueRow(TableWriter& table, const std::vector<ValueColumn>& columns) : table_(table), columns_(columns) {}

  void begin();

  // ---- something for each column, in their order ----
  void add_text(std::string_view text);
  void add_nothing(std::size_t columns = 1);
  void add_field(std::string_view field);
  void add_number(std::int64_t counts, int exponent);  // counts x 10^exponent

  // Fields of ten characters at their places in a record; nothing at TableWriter::nowhere.
  void add_fields(std::string_view record, std::span<const std::size_t> places);

  // Of the column with that index.
  void note_cut_sign(std::size_t column) { entries_.emplace_back(Cause::sign_cut, column); }

  std::size_t columns_left() const { return columns_.size() - column_; }
  std::size_t values() const { return values_; }  // without texts

  // Valid until the next call. Adjacent records mostly have the same note, which is not made again then.
  std::string_view note();

 private:
  enum class Cause { over_range, no_value, sign_cut };
  using Entry = std::pair<Cause, std::size_t>;

  void note_missing(std::string_view field, std::size_t column);

  TableWriter& table_;
  const std::vector<ValueColumn>& columns_;
  std::size_t column_ = 0;
  std::size_t values_ = 0;
  std::vector<std::size_t> missing_;
  std::vector<Entry> entries_, of_note_;
  std::string note_;
};

}  // namespace halden
