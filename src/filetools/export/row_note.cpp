#include "filetools/export/row_note.h"

#include <array>

namespace halden {

namespace {

constexpr std::array<std::string_view, 3> causes = {"over range:", "no value:", "a sign may be cut:"};

}  // namespace

void RowNote::add_missing(std::string_view field, std::size_t column) {
  add(field.find("OL") != std::string_view::npos ? Cause::over_range : Cause::no_value, column);
}

std::string_view RowNote::text() {
  if (entries_ == of_text_) return text_;
  of_text_ = entries_;
  text_.clear();
  for (std::size_t cause = 0; cause < causes.size(); ++cause) {
    bool is_first = true;
    for (const auto& [of_entry, column] : entries_) {
      if (of_entry != Cause(cause)) continue;
      if (is_first) text_.append(text_.empty() ? "" : " / ").append(causes[cause]);
      is_first = false;
      text_.append(" ").append(quantities_[column]);
    }
  }
  return text_;
}

}  // namespace halden
