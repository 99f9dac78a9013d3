// The file that a command draws its picture into.
#pragma once

#include <functional>
#include <string>

#include "platform/files.h"
#include "platform/offscreen.h"

namespace CLI {
class App;
}

namespace halden {

// Adds --out. The ending of the name, .png, .svg or .pdf, says what is written; any other is refused. A file
// that is there already is replaced. `path` (UTF-8) lives until the command line is parsed.
void add_picture_option(CLI::App& command, std::string& path);

// Starts what draws, lets `save` write the picture and says what failed. Returns the exit code.
int end_with_picture(Files& files, const OpenOffscreen& open_offscreen, const std::string& path,
                     const std::function<FileFailure(Pictures&)>& save);

}  // namespace halden
