#include "filetools/viewer/viewed_file.h"

#include <algorithm>
#include <utility>

#include "filetools/line_reader.h"
#include "filetools/shown_text.h"

namespace halden {

namespace {

constexpr std::size_t last_block = 199;
constexpr std::size_t longest_record = 254;   // with its line end
constexpr int columns_without_shifting = 44;  // these stay in sight at the end of the scroll bar

std::string from_column(std::string_view text, int column) {
  return std::string(behind_characters(text, static_cast<std::size_t>(column - 1)));
}

}  // namespace

ViewRefusal ViewedFile::open(const std::string& path) {
  LineBlock block = read_block(files_, path, 0);
  failure_ = block.failure;
  const ViewRefusal refusal = refusal_of(block, 1);
  if (refusal == ViewRefusal::unreadable) return refusal;
  path_ = path;
  blocks_.assign(1, {});
  blocks_read_ = 0;
  column_ = 1;
  if (refusal == ViewRefusal::none) {
    show(std::move(block), 1);
  } else {
    show_nothing();
    longest_line_ = block.longest_line;
  }
  return refusal;
}

ViewRefusal ViewedFile::more_blocks() {
  if (current_block_ >= last_block) return ViewRefusal::no_more_blocks;
  return offers_more_blocks() ? go_to(current_block_ + 1) : ViewRefusal::none;
}

ViewRefusal ViewedFile::previous_block() {
  return offers_previous_block() ? go_to(current_block_ - 1) : ViewRefusal::none;
}

ViewRefusal ViewedFile::read_again() {
  if (path_.empty()) return ViewRefusal::none;
  return is_shown() ? go_to(current_block_) : open(path_);
}

ViewRefusal ViewedFile::go_to(std::size_t number) {
  LineBlock block = read_block(files_, path_, blocks_[number - 1].start);
  failure_ = block.failure;
  const ViewRefusal refusal = refusal_of(block, number);
  if (refusal == ViewRefusal::none) show(std::move(block), number);
  return refusal;
}

ViewRefusal ViewedFile::refusal_of(const LineBlock& block, std::size_t number) const {
  if (block.failure != FileFailure::none) return ViewRefusal::unreadable;
  if (block.lines.empty() && number > 1) return ViewRefusal::shrunk;
  const bool too_long = block.longest_line + 2 > longest_record;
  return too_long && long_lines_ == LongLines::refused ? ViewRefusal::too_long : ViewRefusal::none;
}

void ViewedFile::show(LineBlock block, std::size_t number) {
  current_block_ = number;
  blocks_read_ = std::max(blocks_read_, number);
  const std::uint64_t records_before = blocks_[number - 1].records_before;
  blocks_.resize(number);
  if (block.next_start) blocks_.push_back({*block.next_start, records_before + block.lines.size()});
  heading_ = block.lines.empty() ? std::string() : block.lines.front();
  starts_ = std::move(block.starts);
  longest_line_ = block.longest_line;
  column_ = std::clamp(column_, 1, std::max(column_maximum(), 1));
  if (column_ > 1)
    for (std::string& line : block.lines) line = from_column(line, column_);
  list_ = std::make_shared<const Lines>(std::move(block.lines));
  aligned_.count = 0;
  cache_.clear();
}

void ViewedFile::show_nothing() {
  current_block_ = 0;
  heading_.clear();
  starts_.clear();
  list_ = std::make_shared<const Lines>();
  aligned_.count = 0;
  cache_.clear();
}

FileFailure ViewedFile::shift(int column, const VisibleLines& visible) {
  const int wanted = std::clamp(column, 1, std::max(column_maximum(), 1));
  if (visible == aligned_ && wanted == column_) return FileFailure::none;
  if (visible != aligned_) {
    if (const FileFailure failure = read_visible(visible); failure != FileFailure::none) return failure;
  }
  column_ = wanted;
  Lines lines = *list_;
  for (std::size_t i = 0; i < cache_.size(); ++i) lines[visible.top + i] = from_column(cache_[i], column_);
  list_ = std::make_shared<const Lines>(std::move(lines));
  return FileFailure::none;
}

// A file that has become shorter gives fewer lines; the others keep the text they are shown with.
FileFailure ViewedFile::read_visible(const VisibleLines& visible) {
  Lines read;
  const std::size_t end = std::min(visible.top + visible.count, starts_.size());
  if (visible.top < end) {
    LineReader reader(files_, path_, starts_[visible.top]);
    while (read.size() < end - visible.top) {
      const auto line = reader.next();
      if (!line) break;
      read.push_back(shown_text(line->bytes));
    }
    if (reader.failure() != FileFailure::none) return reader.failure();
  }
  cache_ = std::move(read);
  aligned_ = visible;
  return FileFailure::none;
}

std::uint64_t ViewedFile::record_number(std::size_t index) const {
  return blocks_[current_block_ - 1].records_before + index + 1;
}

int ViewedFile::column_maximum() const {
  return is_shown() ? static_cast<int>(record_length()) - columns_without_shifting : 0;
}

}  // namespace halden
