// The file that the viewer shows: one block of its lines as a list, which block, and from which column on.
//
// Shifting sideways changes the visible lines only, because the list is long: their whole text is read again
// from the file, the other lines keep the column they were shown from until they are visible and aligned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "filetools/viewer/line_block.h"
#include "platform/files.h"
#include "screen/window.h"

namespace halden {

enum class ViewRefusal {
  none,
  unreadable,      // failure() says why
  too_long,        // a line of 253 characters or more, and long lines are not allowed
  no_more_blocks,  // positions of 199 blocks are kept
  shrunk           // the file has no lines any more where the block begins
};

enum class LongLines { refused, allowed };

// What is visible of the list; `count` may be more than there are.
struct VisibleLines {
  std::size_t top = 0;  // index of the first one
  std::size_t count = 16;

  bool operator==(const VisibleLines&) const = default;
};

class ViewedFile {
 public:
  // `files` outlives this.
  explicit ViewedFile(Files& files) : files_(files) {}

  // ---- what the user does ----
  // Shows the first block from its first column on. A file that is too long is kept as path(), so that it can
  // be printed, but nothing of it is shown. Any other refusal, here and below, changes nothing.
  ViewRefusal open(const std::string& path);

  ViewRefusal more_blocks();
  ViewRefusal previous_block();

  // The same block of a file that has changed; the column stays.
  ViewRefusal read_again();

  // Takes effect with the next block that is read.
  void set_long_lines(LongLines long_lines) { long_lines_ = long_lines; }

  // Shows the visible lines from this column on (within its range), or from the current one. Neither reads
  // the file again while the same lines are visible. After a failure nothing has changed.
  FileFailure shift(int column, const VisibleLines& visible);
  FileFailure align(const VisibleLines& visible) { return shift(column_, visible); }

  // ---- what is shown ----
  const std::string& path() const { return path_; }  // empty before the first file
  bool is_shown() const { return current_block_ > 0; }

  const std::string& heading() const { return heading_; }  // the first line of the block, whole
  const std::shared_ptr<const Lines>& list() const { return list_; }

  std::size_t current_block() const { return current_block_; }  // from 1; 0 when nothing is shown
  std::size_t blocks_read() const { return blocks_read_; }      // of this file
  std::size_t records_read() const { return list_->size(); }    // lines of the block
  std::size_t chars_per_record() const { return longest_line_; }
  std::size_t record_length() const { return longest_line_ + 2; }  // with the line end

  // A line of the list as a line of the file, from 1.
  std::uint64_t record_number(std::size_t index) const;

  bool offers_previous_block() const { return current_block_ > 1; }
  bool offers_more_blocks() const { return is_shown() && blocks_.size() > current_block_; }

  // The scroll bar has the columns 1 to this one; it is hidden when that is below 1.
  int column_maximum() const;
  int column() const { return column_; }

  FileFailure failure() const { return failure_; }  // of the last block that was read

 private:
  struct BlockStart {
    std::uint64_t start = 0;
    std::uint64_t records_before = 0;
  };

  ViewRefusal go_to(std::size_t number);
  ViewRefusal refusal_of(const LineBlock& block, std::size_t number) const;
  void show(LineBlock block, std::size_t number);
  void show_nothing();
  FileFailure read_visible(const VisibleLines& visible);

  Files& files_;
  LongLines long_lines_ = LongLines::refused;
  std::string path_;
  std::vector<BlockStart> blocks_;  // as far as known
  std::size_t current_block_ = 0;
  std::size_t blocks_read_ = 0;
  std::string heading_;
  std::shared_ptr<const Lines> list_ = std::make_shared<const Lines>();
  std::vector<std::uint64_t> starts_;  // of the lines of the list
  std::size_t longest_line_ = 0;       // of the block; of the refused one when nothing is shown
  int column_ = 1;
  VisibleLines aligned_{.top = 0, .count = 0};  // what the cache holds
  Lines cache_;                                 // the visible lines, whole
  FileFailure failure_ = FileFailure::none;
};

}  // namespace halden
