#include "filetools/export/value_row.h"

#include <algorithm>
#include <array>

#include "formats/record_field.h"

namespace halden {

namespace {

constexpr std::array<std::string_view, 3> causes = {"over range:", "no value:", "a sign may be cut:"};

}  // namespace

void ValueRow::begin() {
  column_ = 0;
  values_ = 0;
  entries_.clear();
}

void ValueRow::add_text(std::string_view text) {
  table_.add_text(text);
  ++column_;
}

void ValueRow::add_nothing(std::size_t columns) {
  for (std::size_t count = 0; count < columns; ++count) table_.add_nothing();
  column_ += columns;
}

void ValueRow::add_field(std::string_view field) {
  if (table_.add_field(field))
    ++values_;
  else
    note_missing(field, column_);
  ++column_;
}

void ValueRow::add_number(std::int64_t counts, int exponent) {
  table_.add_number(counts, exponent);
  ++values_;
  ++column_;
}

void ValueRow::add_fields(std::string_view record, std::span<const std::size_t> places) {
  missing_.clear();
  values_ += table_.add_fields(record, places, missing_);
  for (const std::size_t index : missing_)
    note_missing(record.substr(places[index], field_text_length), column_ + index);
  column_ += places.size();
}

void ValueRow::note_missing(std::string_view field, std::size_t column) {
  const bool is_overload = field.find("OL") != std::string_view::npos;
  entries_.emplace_back(is_overload ? Cause::over_range : Cause::no_value, column);
}

std::string_view ValueRow::note() {
  if (entries_ == of_note_) return note_;
  of_note_ = entries_;
  note_.clear();
  for (std::size_t cause = 0; cause < causes.size(); ++cause) {
    const auto is_of_cause = [cause](const Entry& entry) { return entry.first == Cause(cause); };
    if (std::none_of(entries_.begin(), entries_.end(), is_of_cause)) continue;
    note_.append(note_.empty() ? "" : " / ").append(causes[cause]);
    for (const Entry& entry : entries_)
      if (is_of_cause(entry)) note_.append(" ").append(columns_[entry.second].quantity);
  }
  return note_;
}

}  // namespace halden
