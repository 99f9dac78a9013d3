#include "formats/data_file.h"

#include <cstdint>
#include <utility>

#include "formats/record_field.h"

namespace halden {

namespace {

// What must be written after the last byte of a file before a new line can begin.
std::string_view missing_line_end(Files& files, const std::string& path, std::uint64_t length) {
  const std::string last = files.read(path, length - 1, 1).bytes;
  if (last.empty() || last.back() == '\n') return {};
  return last.back() == '\r' ? line_end.substr(1) : line_end;
}

}  // namespace

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
  const std::uint64_t length = files_.length(path).value_or(0);
  std::string bytes;
  if (length > 0) bytes += missing_line_end(files_, path, length);
  if (length == 0 || header == Header::always) bytes += header_;
  bytes += waiting_;
  const FileFailure failure = files_.append(path, bytes);
  if (failure != FileFailure::none) return failure;
  if (path == path_) lines_written_ += lines_waiting_;
  lines_waiting_ = 0;
  waiting_.clear();
  header_waits_ = false;
  failure_ = FileFailure::none;
  return failure;
}

}  // namespace halden
