#include "app/recent_files.h"

#include <algorithm>
#include <string_view>

namespace halden {

namespace {

constexpr std::size_t longest_list = std::size_t{256} << 10;  // bytes; the file may hold anything

}  // namespace

void RecentFiles::read() {
  const std::string bytes = files_.read(path_, 0, longest_list).bytes;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos || blank + 1 == line.size()) continue;
    for (const FileKind kind : file_kinds) {
      Lines& paths = paths_[static_cast<std::size_t>(kind)];
      if (line.substr(0, blank) == kind_name(kind) && paths.size() < most_recent_files)
        paths.emplace_back(line.substr(blank + 1));
    }
  }
}

// A path with a line end in it could not be read back.
void RecentFiles::add(FileKind kind, const std::string& path) {
  Lines& paths = paths_[static_cast<std::size_t>(kind)];
  const bool is_newest = !paths.empty() && paths.front() == path;
  if (is_newest || path.find_first_of("\r\n") != std::string::npos) return;
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  if (paths.size() > most_recent_files) paths.pop_back();
  write();
}

void RecentFiles::write() {
  std::string bytes;
  for (const FileKind kind : file_kinds)
    for (const std::string& path : of(kind))
      bytes.append(kind_name(kind)).append(" ").append(path).append("\r\n");
  files_.replace(path_, bytes);
}

}  // namespace halden
