// The file that a download writes to, behind what it holds already.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "formats/data_file.h"
#include "platform/files.h"

namespace halden {

class OutputFile {
 public:
  // `files` outlives this. A file that was not there before and into which nothing was written does not stay.
  OutputFile(Files& files, std::string path)
      : files_(files), path_(std::move(path)), new_(!files.exists(path_)) {}

  const std::string& path() const { return path_; }

  // Whether the file can be written; a missing one is made.
  FileFailure try_to_write() { return files_.append(path_, ""); }

  // Adds lines, each with its line end.
  FileFailure append_lines(std::string_view lines) { return halden::append_lines(files_, path_, lines); }

  ~OutputFile() {
    if (new_ && files_.length(path_) == 0) files_.remove(path_);
  }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

 private:
  Files& files_;
  std::string path_;
  bool new_;
};

}  // namespace halden
