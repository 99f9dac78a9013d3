#include "filetools/export/table_writer.h"

#include <charconv>
#include <cstring>

#include "formats/record_field.h"

namespace halden {

namespace {

constexpr std::size_t piece_length = std::size_t{256} << 10;

constexpr std::size_t longest_text = 1024;
constexpr std::size_t longest_value = 2 * longest_text + 2;  // every character may be escaped
constexpr std::size_t texts_in_row = 8;                      // all other values are numbers

constexpr std::string_view row_end = "\n";

std::size_t longest_row(const std::vector<std::string>& before) {
  std::size_t length = texts_in_row * longest_value;
  for (const std::string& text : before) length += text.size() + longest_plain_number;
  return length;
}

bool is_printable(char c) { return c >= ' ' && c <= '~'; }

bool needs_escape(char c, TableFormat format) {
  return c == '"' || (format == TableFormat::json && c == '\\');
}

char* write_quoted(std::string_view text, TableFormat format, char* to) {
  *to++ = '"';
  for (const char c : text) {
    if (needs_escape(c, format)) *to++ = format == TableFormat::json ? '\\' : '"';
    *to++ = is_printable(c) ? c : '?';
  }
  *to++ = '"';
  return to;
}

// By character: 1 where a text of CSV needs quotes.
std::array<std::uint8_t, 256> characters_to_quote(char separator) {
  std::array<std::uint8_t, 256> marks;
  for (std::size_t code = 0; code < marks.size(); ++code) {
    const auto c = static_cast<char>(code);
    marks[code] = !is_printable(c) || c == '"' || c == separator ? 1 : 0;
  }
  return marks;
}

std::vector<std::string> texts_before(const std::vector<std::string>& names, TableFormat format,
                                      char separator) {
  std::vector<std::string> before;
  for (const std::string& name : names) {
    before.emplace_back(before.empty() ? std::size_t{0} : std::size_t{1}, separator);
    if (format == TableFormat::json) before.back().append("\"").append(name).append("\":");
  }
  return before;
}

// An empty text may have no address.
void copy(std::string_view text, char* to) {
  if (!text.empty()) std::memcpy(to, text.data(), text.size());
}

}  // namespace

TableWriter::TableWriter(FileWriter& file, const ExportOptions& options,
                         const std::vector<std::string>& names)
    : file_(file),
      format_(options.format),
      point_(format_ == TableFormat::csv && options.decimal == DecimalMark::comma ? ',' : '.'),
      separator_(format_ == TableFormat::csv && options.separator == Separator::semicolon ? ';' : ','),
      needs_quotes_(characters_to_quote(separator_)),
      before_(texts_before(names, format_, separator_)),
      buffer_(new char[piece_length + longest_row(before_)]),
      at_(buffer_.get()),
      flush_from_(at_ + piece_length) {
  write_header(names);
}

void TableWriter::write_header(const std::vector<std::string>& names) {
  if (format_ == TableFormat::json) return append("[\n");
  for (std::size_t index = 0; index < names.size(); ++index) {
    append(before_[index]);
    append(names[index]);
  }
  append(row_end);
}

void TableWriter::begin_row() {
  if (at_ >= flush_from_) flush();
  if (format_ == TableFormat::json) append(rows_ > 0 ? ",\n{" : "{");
  column_ = 0;
}

inline char* TableWriter::write_before(std::size_t column, char* to) const {
  const std::string& before = before_[column];
  std::memcpy(to, before.data(), before.size());
  return to + before.size();
}

inline char* TableWriter::write_null(char* to) const {
  constexpr std::string_view null = "null";
  if (format_ == TableFormat::csv) return to;
  std::memcpy(to, null.data(), null.size());
  return to + null.size();
}

void TableWriter::add_count(std::size_t count) {
  char* const start = write_before(column_++, at_);
  at_ = std::to_chars(start, start + longest_plain_number, count).ptr;
}

void TableWriter::add_nothing() { at_ = write_null(write_before(column_++, at_)); }

bool TableWriter::add_field(std::string_view field) {
  char* const start = write_before(column_++, at_);
  char* const end = write_plain_number(field, point_, start);
  at_ = end == start ? write_null(start) : end;
  return end != start;
}

void TableWriter::add_number(std::int64_t counts, int exponent) {
  at_ = write_plain_number(counts, exponent, point_, write_before(column_++, at_));
}

std::size_t TableWriter::add_fields(std::string_view record, std::span<const std::size_t> places,
                                    std::vector<std::size_t>& missing) {
  char* at = at_;
  const bool is_csv = format_ == TableFormat::csv;
  const char separator = separator_, point = point_;
  std::size_t empty = 0;
  for (std::size_t index = 0; index < places.size(); ++index) {
    if (is_csv)
      *at++ = separator;
    else
      at = write_before(column_ + index, at);
    char* const start = at;
    const std::size_t place = places[index];
    if (place != nowhere) at = write_plain_number({record.data() + place, field_text_length}, point, start);
    if (at != start) continue;
    at = write_null(start);
    ++empty;
    if (place != nowhere) missing.push_back(index);
  }
  column_ += places.size();
  at_ = at;
  return places.size() - empty;
}

void TableWriter::add_text(std::string_view text) {
  text = text.substr(0, longest_text);
  char* const start = write_before(column_++, at_);
  unsigned quoted = format_ == TableFormat::json ? 1 : 0;
  for (const char c : text) quoted |= needs_quotes_[static_cast<unsigned char>(c)];
  if (quoted != 0) {
    at_ = write_quoted(text, format_, start);
    return;
  }
  copy(text, start);
  at_ = start + text.size();
}

void TableWriter::add_plain_text(std::string_view text) {
  char* to = write_before(column_++, at_);
  if (format_ == TableFormat::json) *to++ = '"';
  copy(text, to);
  to += text.size();
  if (format_ == TableFormat::json) *to++ = '"';
  at_ = to;
}

void TableWriter::end_row() {
  append(format_ == TableFormat::json ? std::string_view("}") : row_end);
  ++rows_;
}

FileFailure TableWriter::finish() {
  if (format_ == TableFormat::json) append("\n]\n");
  flush();
  return failure_;
}

void TableWriter::append(std::string_view text) {
  std::memcpy(at_, text.data(), text.size());
  at_ += text.size();
}

// After a failure nothing more is written.
void TableWriter::flush() {
  const std::string_view bytes(buffer_.get(), static_cast<std::size_t>(at_ - buffer_.get()));
  if (failure_ == FileFailure::none) failure_ = file_.write(bytes);
  at_ = buffer_.get();
}

}  // namespace halden
