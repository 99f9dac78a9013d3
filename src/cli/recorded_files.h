// The files of a command that records: real ones, but the configuration of the program with windows is
// neither read nor written.
#pragma once

#include "app/configuration.h"
#include "platform/qt/core/qt_files.h"

namespace halden {

class RecordedFiles : public QtFiles {
 public:
  FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) override {
    if (is_configuration_file(path)) return {FileFailure::not_found, {}};
    return QtFiles::read(path, offset, max_bytes);
  }
  FileFailure replace(const std::string& path, std::string_view bytes) override {
    return is_configuration_file(path) ? FileFailure::forbidden : QtFiles::replace(path, bytes);
  }
};

}  // namespace halden
