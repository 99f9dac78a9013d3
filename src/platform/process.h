// What a program does about its process before anything else, and how it prints its help and ends.
#pragma once

#include <string_view>

namespace halden {

// Opens the null device behind standard input, output and error where these are closed: a file or port opened
// later would otherwise take their place and receive error texts. Ignores the signals for a reader that has
// gone and for a file that has reached its size limit: the write fails instead, and what waits is kept.
void prepare_process();

// What is told when results could not be written.
inline constexpr const char* not_written = "The results could not be written.";

// Prints a help or a version at once, for a program that ends then. Returns its exit code: 0, or 1 when the
// text could not be written (disk full), which the error channel is told. A reader that has gone has seen
// enough.
int print_and_end(std::string_view text);

}  // namespace halden
