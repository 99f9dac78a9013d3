// Every file operation the program makes. Failures are values; nothing here throws. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halden {

enum class FileFailure { none, not_found, forbidden, not_a_file, read_only, disk_full, over_quota, failed };

struct FilePiece {
  FileFailure failure = FileFailure::none;
  std::string bytes;  // shorter than asked for only at the end of the file
};

class Files {
 public:
  virtual ~Files() = default;

  virtual bool exists(const std::string& path) = 0;

  // At most `max_bytes` from `offset` on.
  virtual FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) = 0;

  // Opens, writes at the end, closes. Creates a missing file. On failure nothing counts as written. Anything
  // but a file (a folder, a pipe, a device) is a failure: a write could wait there for ever.
  virtual FileFailure append(const std::string& path, std::string_view bytes) = 0;

  // Writes the whole file anew so that a crash leaves the old or the new content, never half.
  virtual FileFailure replace(const std::string& path, std::string_view bytes) = 0;

  // Deleting a file that is not there is no failure.
  virtual FileFailure remove(const std::string& path) = 0;

  // Gives a file another name in the same folder. Fails, and changes nothing, when a file of that name is
  // there.
  virtual FileFailure rename(const std::string& path, const std::string& new_path) = 0;

  // Nothing when the file cannot be seen.
  virtual std::optional<std::uint64_t> length(const std::string& path) = 0;
};

}  // namespace halden
