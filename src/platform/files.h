// Every file operation the program makes. Failures are values; nothing here throws. Paths are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace halden {

enum class FileFailure { none, not_found, forbidden, not_a_file, read_only, disk_full, over_quota, failed };

struct FilePiece {
  FileFailure failure = FileFailure::none;
  std::string bytes;  // shorter than asked for only at the end of the file
};

// A file that stays open while it is read from its beginning to its end: for files of hundreds of megabytes,
// where Files::read would open the file again for every piece.
class FileReader {
 public:
  virtual ~FileReader() = default;

  // As long as it was when it was opened; the file may grow meanwhile.
  virtual std::uint64_t length() const = 0;

  // Puts the next bytes, at most `count`, into `target`, and returns how many: 0 at the end. Nothing when the
  // file cannot be read any more.
  virtual std::optional<std::size_t> read(char* target, std::size_t count) = 0;
};

struct OpenedFile {
  FileFailure failure = FileFailure::none;
  std::unique_ptr<FileReader> reader{};  // absent after a failure
};

// A file that is written in pieces and appears under its name only when it is whole: until then its bytes are
// in the file NAME.part. Without a successful finish() nothing of it stays, and a file that had the name
// before is left as it was.
class FileWriter {
 public:
  virtual ~FileWriter() = default;

  // Writes behind what was written before. After a failure nothing more can be written.
  virtual FileFailure write(std::string_view bytes) = 0;

  // Gives the file its name, in place of a file that has it already.
  virtual FileFailure finish() = 0;
};

struct CreatedFile {
  FileFailure failure = FileFailure::none;
  std::unique_ptr<FileWriter> writer{};  // absent after a failure
};

// What stands behind the name of a file while it is not whole.
inline constexpr std::string_view part_suffix = ".part";

class Files {
 public:
  virtual ~Files() = default;

  virtual bool exists(const std::string& path) = 0;

  // At most `max_bytes` from `offset` on.
  virtual FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) = 0;

  virtual OpenedFile open(const std::string& path) = 0;

  // Opens, writes at the end, closes. Creates a missing file. On failure nothing counts as written. Anything
  // but a file (a folder, a pipe, a device) is a failure: a write could wait there for ever.
  virtual FileFailure append(const std::string& path, std::string_view bytes) = 0;

  // Writes the whole file anew so that a crash leaves the old or the new content, never half.
  virtual FileFailure replace(const std::string& path, std::string_view bytes) = 0;

  // For a file of hundreds of megabytes, which no caller holds in memory. A file NAME.part that is there is
  // lost.
  virtual CreatedFile create(const std::string& path) = 0;

  // Deleting a file that is not there is no failure.
  virtual FileFailure remove(const std::string& path) = 0;

  // Gives a file another name in the same folder. Fails, and changes nothing, when a file of that name is
  // there.
  virtual FileFailure rename(const std::string& path, const std::string& new_path) = 0;

  // Nothing when the file cannot be seen.
  virtual std::optional<std::uint64_t> length(const std::string& path) = 0;
};

}  // namespace halden
