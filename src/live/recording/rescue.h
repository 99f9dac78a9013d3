// Keeps recorded lines that could not be written to their file: in a rescue file in the working folder, or in
// the temporary folder when that cannot be written. Every start names the file until the user has moved or
// deleted it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "formats/data_file.h"
#include "platform/files.h"

namespace halden {

class Rescue {
 public:
  // Folders in UTF-8.
  Rescue(Files& files, std::string work_folder, std::string temporary_folder);

  // Appends the file's header lines and all waiting lines to the rescue file of that kind. Returns its path,
  // or nothing when neither folder can be written: all lines still wait then.
  std::optional<std::string> save(DataFile& file, RecordKind kind);

  // The paths of the rescue files that exist.
  std::vector<std::string> found();

 private:
  Files& files_;
  std::vector<std::string> folders_;  // in the order they are tried
};

}  // namespace halden
