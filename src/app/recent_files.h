// The files opened last, newest first, up to ten of each kind. They are kept in the working folder:
//
//   power /home/me/site A/day.csv
//   hardcopy /home/me/copy.txt
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "app/file_kind.h"
#include "platform/files.h"
#include "screen/meter_rec/menus.h"
#include "screen/window.h"

namespace halden {

inline constexpr std::size_t most_recent_files = recent_entries;  // of a kind

class RecentFiles {
 public:
  // `files` outlives this; `path` is that of the file they are kept in.
  RecentFiles(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  // Lines of no known kind are left out.
  void read();

  // The newest of its kind from now on. Where the folder cannot be written, only until the program ends.
  void add(FileKind kind, const std::string& path);

  const Lines& of(FileKind kind) const { return paths_[static_cast<std::size_t>(kind)]; }

 private:
  void write();

  Files& files_;
  std::string path_;
  std::array<Lines, file_kinds.size()> paths_;
};

}  // namespace halden
