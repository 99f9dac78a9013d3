// The process of a command: interruptions from the terminal, and its output, whose reader may end first
// (`haldenctl live ... | head`) or take nothing any more.
#pragma once

#include <optional>
#include <string_view>

namespace halden {

// From now on Ctrl-C and the request to terminate are counted instead of ending the program. Signals already
// ignored at start stay ignored.
void note_interruptions();
int interruptions();
inline bool interrupted() { return interruptions() > 0; }

enum class Written { all, reader_gone, failed, interrupted };

// Writes to standard output at once. `interrupted` means that the reader took nothing for half a second of an
// interruption.
Written write_results(std::string_view results);

// The same for the error channel.
Written write_remark(std::string_view remark);

// Whether the error channel is a terminal.
bool remarks_are_watched();

// In characters.
struct ScreenSize {
  int columns = 0;
  int rows = 0;
};

// The size of the terminal behind standard output, ready to obey escape sequences; nothing when there is none
// that does.
std::optional<ScreenSize> results_screen();

}  // namespace halden
