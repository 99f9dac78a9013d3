// Files on the computer's disks.
#pragma once

#include "platform/files.h"

namespace halden {

class QtFiles : public Files {
 public:
  bool exists(const std::string& path) override;

  // Anything but a file (a directory, a device) is a failure.
  FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) override;

  OpenedFile open(const std::string& path) override;

  FileFailure append(const std::string& path, std::string_view bytes) override;
  FileFailure replace(const std::string& path, std::string_view bytes) override;
  CreatedFile create(const std::string& path) override;
  FileFailure remove(const std::string& path) override;
  FileFailure rename(const std::string& path, const std::string& new_path) override;
  std::optional<std::uint64_t> length(const std::string& path) override;
};

}  // namespace halden
