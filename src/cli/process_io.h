// The process of a command: interruptions from the terminal, and standard output, whose reader may end first
// (`haldenctl live ... | head`).
#pragma once

#include <string_view>

namespace halden {

// From now on Ctrl-C and the request to terminate are noted instead of ending the program. Signals already
// ignored at start stay ignored.
void note_interruptions();
bool interrupted();

enum class Written { all, reader_gone, failed };

// What is told when it failed.
inline constexpr const char* not_written = "The results could not be written.";

// Writes to standard output and flushes.
Written write_results(std::string_view results);

}  // namespace halden
