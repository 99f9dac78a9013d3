// The files of a command that records: those of the disk, but the configuration of the program with windows
// is neither read nor written.
#pragma once

#include "app/configuration.h"
#include "platform/files.h"

namespace halden {

class RecordedFiles : public Files {
 public:
  // `disk` outlives this.
  explicit RecordedFiles(Files& disk) : disk_(disk) {}

  bool exists(const std::string& path) override { return disk_.exists(path); }
  FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) override {
    if (is_configuration_file(path)) return {FileFailure::not_found, {}};
    return disk_.read(path, offset, max_bytes);
  }
  FileFailure append(const std::string& path, std::string_view bytes) override {
    return disk_.append(path, bytes);
  }
  FileFailure replace(const std::string& path, std::string_view bytes) override {
    return is_configuration_file(path) ? FileFailure::forbidden : disk_.replace(path, bytes);
  }
  FileFailure remove(const std::string& path) override { return disk_.remove(path); }
  std::optional<std::uint64_t> length(const std::string& path) override { return disk_.length(path); }

 private:
  Files& disk_;
};

}  // namespace halden
