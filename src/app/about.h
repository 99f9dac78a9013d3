// The About box and the help documents.
#pragma once

#include <string>

namespace halden {

// Three lines with an empty line between each: product, version, legal notice; the first two preceded by as
// many blanks as they are shorter than the third.
std::string about_text();

// The path of the user manual in the language of a Help entry (0 English, 1 French, 2 German, 3 Spanish, 4
// Italian, 5 Portuguese) below the program's own folder. Empty for another index.
std::string manual_path(const std::string& program_folder, int index);

}  // namespace halden
