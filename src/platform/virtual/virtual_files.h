// Files in memory, on a disk that can fail.
#pragma once

#include <map>
#include <string>

#include "platform/files.h"

namespace halden {

class VirtualFiles : public Files {
 public:
  bool exists(const std::string& path) override {
    return contents.count(path) > 0 || read_failures.count(path) > 0;
  }
  FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) override;
  OpenedFile open(const std::string& path) override;
  FileFailure append(const std::string& path, std::string_view bytes) override;
  FileFailure replace(const std::string& path, std::string_view bytes) override;
  CreatedFile create(const std::string& path) override;
  FileFailure remove(const std::string& path) override;
  FileFailure rename(const std::string& path, const std::string& new_path) override;
  std::optional<std::uint64_t> length(const std::string& path) override;

  std::map<std::string, std::string> contents;

  // Faults on demand.
  std::map<std::string, FileFailure> read_failures;    // by path
  FileFailure write_failure = FileFailure::none;       // of everything that is written
  std::map<std::string, FileFailure> folder_failures;  // of the same, by the beginning of the path
  std::optional<std::uint64_t> free_bytes;             // for appends and files in pieces

 private:
  FileFailure why_not_writable(const std::string& path) const;
};

}  // namespace halden
