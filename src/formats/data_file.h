// A data file while it is being recorded: lines are appended by open, write and close, and none is lost
// unless it is given up.
//
// A line that cannot be written (disk full, folder deleted, file locked by a spreadsheet) stays in memory, in
// order, and is written with the next append that succeeds. A last line without a line end (power cut) gets
// one first. A file that has been deleted meanwhile begins with the header lines again.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace halden {

// What a data file holds.
enum class RecordKind { power, harmonics, waveform };

// Appends lines, each with its line end. A last line in the file that has none gets it first.
FileFailure append_lines(Files& files, const std::string& path, std::string_view lines);

class DataFile {
 public:
  explicit DataFile(Files& files) : files_(files) {}

  // Begins a block of lines at the end of `path` (UTF-8) and tries to write its header lines, each with its
  // line end. Lines still waiting for another file are dropped.
  void begin(std::string path, std::string header);

  // Adds one line, without its line end, and tries to write all waiting lines.
  void append_line(std::string_view line);

  // No more lines come. Header lines still waiting are dropped unless lines are waiting with them.
  void end();

  // Tries again. True when nothing is waiting any more.
  bool write_waiting();

  // Writes the header lines and all waiting lines to the end of another file; on success none waits.
  FileFailure write_waiting_to(const std::string& path);

  // The waiting lines are lost.
  void give_up_waiting();

  const std::string& path() const { return path_; }
  std::size_t lines_written() const { return lines_written_; }  // to this file, not to another one
  std::size_t lines_waiting() const { return lines_waiting_; }
  std::size_t lines_given_up() const { return lines_given_up_; }

  // Why the last append failed; `none` when it did not.
  FileFailure failure() const { return failure_; }

 private:
  enum class Header { always, in_empty_file };

  FileFailure append_waiting(const std::string& path, Header header);

  Files& files_;
  std::string path_;
  std::string header_;
  bool header_waits_ = false;
  std::string waiting_;  // lines with their line ends
  std::size_t lines_waiting_ = 0;
  std::size_t lines_written_ = 0;
  std::size_t lines_given_up_ = 0;
  FileFailure failure_ = FileFailure::none;
};

}  // namespace halden
