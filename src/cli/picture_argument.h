// The file that a command draws its picture into.
#pragma once

#include <string>

#include "platform/files.h"

namespace CLI {
class App;
}

namespace halden {

// Adds --out. The ending of the name, .png, .svg or .pdf, says what is written; any other is refused. A file
// that is there already is replaced. `path` (UTF-8) lives until the command line is parsed.
void add_picture_option(CLI::App& command, std::string& path);

// Says why the picture could not be written, if so. Returns the exit code.
int end_with_picture(FileFailure failure, const std::string& path);

}  // namespace halden
