// Prints the lines of a text file, or some lines, on landscape pages in a font of fixed pitch. A line wider
// than the page is printed in pieces, each like a line; a piece that would begin below the bottom limit opens
// a page. Nothing else is printed: no heading, page number or date.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "platform/files.h"
#include "platform/printer.h"

namespace halden {

// Told at the start of each page which one it is, from 1. False cancels. It may throw to end the program.
using PrintProgress = std::function<bool(std::size_t page)>;

// After a failure and after cancelling, the document is not sent.
struct PrintedText {
  std::size_t pages = 0;  // begun
  bool cancelled = false;
  FileFailure file = FileFailure::none;  // why the file could not be read to its end
  PrintFailure printer = PrintFailure::none;
};

// How many characters of a line that is wider than the page one piece of it has: at least 1, and three fewer
// than fit, rounded half to even.
std::size_t piece_length(std::size_t characters, double printed_width, double printable_width);

// A file without lines prints nothing.
PrintedText print_file(Printer& printer, Files& files, const std::string& path,
                       const PrintProgress& progress);

// In UTF-8. No line prints nothing.
PrintedText print_lines(Printer& printer, std::span<const std::string> lines, const PrintProgress& progress);

}  // namespace halden
