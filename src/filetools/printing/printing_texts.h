// What the program says while it prints a text file and afterwards, for the status line and haldenctl.
#pragma once

#include <cstddef>
#include <string>

#include "filetools/printing/text_printing.h"
#include "screen/language.h"

namespace halden {

// "Printing page 12"
std::string printing_text(std::size_t page, Language language);

// What became of it; after a print that was sent also where it went, `destination` as the printer tells it.
std::string printed_text(const PrintedText& printed, const std::string& destination, Language language);

}  // namespace halden
