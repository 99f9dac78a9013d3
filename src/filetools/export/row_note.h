// What the column "note" says of a record: which of its quantities have no number, and why.
//
//   "over range: V1 I1 / no value: W_MD VA_MD / a sign may be cut: VARH_SYS"
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halden {

class RowNote {
 public:
  enum class Cause { over_range, no_value, sign_cut };

  // The names of the quantities, by column.
  explicit RowNote(std::vector<std::string> quantities) : quantities_(std::move(quantities)) {}

  void clear() { entries_.clear(); }
  void add(Cause cause, std::size_t column) { entries_.emplace_back(cause, column); }

  // A field that has no number.
  void add_missing(std::string_view field, std::size_t column);

  // Valid until the next call. Adjacent records mostly have the same note, which is not made again then.
  std::string_view text();

 private:
  using Entry = std::pair<Cause, std::size_t>;

  std::vector<std::string> quantities_;
  std::vector<Entry> entries_, of_text_;
  std::string text_;
};

}  // namespace halden
