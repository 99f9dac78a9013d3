#include "formats/data_file.h"

#include <cstdint>
#include <utility>

#include "formats/record_field.h"

namespace halden {

namespace {

// What must be written after the last byte of a file before a new line can begin.
std::string_view missing_line_end(Files& files, const std::string& path) {
  const std::uint64_t length = files.length(path).value_or(0);
  if (length == 0) return {};
  const std::string last = files.read(path, length - 1, 1).bytes;
  if (last.empty() || last.back() == '\n') return {};
  return last.back() == '\r' ? line_end.substr(1) : line_end;
}

}  // namespace

FileFailure append_lines(Files& files, const std::string& path, std::string_view lines) {
  const std::string_view before = missing_line_end(files, path);
  if (before.empty()) return files.append(path, lines);
  return files.append(path, std::string(before).append(lines));
}

void DataFile::begin(std::string path, std::string header) {
  path_ = std::move(path);
  header_ = std::move(header);
  header_waits_ = true;
  waiting_.clear();
  lines_waiting_ = 0;
  lines_written_ = 0;
  lines_given_up_ = 0;
  write_waiting();
}

void DataFile::append_line(std::string_view line) {
  waiting_ += line;
  waiting_ += line_end;
  ++lines_waiting_;
  write_waiting();
}

void DataFile::end() {
  if (lines_waiting_ == 0) header_waits_ = false;
}

bool DataFile::write_waiting() {
  if (!header_waits_ && lines_waiting_ == 0) return true;
  failure_ = append_waiting(path_, header_waits_ ? Header::always : Header::in_empty_file);
  return failure_ == FileFailure::none;
}

FileFailure DataFile::write_waiting_to(const std::string& path) {
  return append_waiting(path, Header::always);
}

void DataFile::give_up_waiting() {
  lines_given_up_ += std::exchange(lines_waiting_, 0);
  waiting_.clear();
  header_waits_ = false;
}

FileFailure DataFile::append_waiting(const std::string& path, Header header) {
  const bool is_empty = files_.length(path).value_or(0) == 0;
  const bool with_header = is_empty || header == Header::always;
  const FileFailure failure = append_lines(files_, path, with_header ? header_ + waiting_ : waiting_);
  if (failure != FileFailure::none) return failure;
  if (path == path_) lines_written_ += lines_waiting_;
  lines_waiting_ = 0;
  waiting_.clear();
  header_waits_ = false;
  failure_ = FileFailure::none;
  return failure;
}

}  // namespace halden
