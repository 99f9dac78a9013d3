// Where recorded lines go that could not be written to their file when the program ended: a file of their own
// in the working folder, or in the temporary folder when that cannot be written. The next start says where it
// lies, and so does every start until the user has moved or deleted it.
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

  // Appends the file's header lines and all that waits to the rescue file of that kind; each has its own. The
  // path, or nothing when neither folder can be written: everything still waits then.
  std::optional<std::string> save(DataFile& file, RecordKind kind);

  // The rescue files that are there.
  std::vector<std::string> found();

 private:
  Files& files_;
  std::vector<std::string> folders_;  // in the order they are tried
};

}  // namespace halden
