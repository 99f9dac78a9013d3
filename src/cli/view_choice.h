// Which live view a command works with: the one that fits the meter's mode, or the waveform view, which the
// user must ask for.
#pragma once

#include <functional>
#include <string>

#include "app/program.h"
#include "cli/session.h"

namespace CLI {
class App;
}

namespace halden {

enum class ViewChoice { by_meter_mode, waveform };

// Adds --waveform. `view` lives until the command line is parsed.
void add_waveform_flag(CLI::App& command, ViewChoice& view, const char* description);

inline constexpr const char* needs_harmonics_mode =
    "The meter is in power mode: press its HARMO button and try again.";

// Opens the chosen view on a meter whose status has been read; only the waveform view is to be opened.
// Returns false when that failed, and the command with it.
bool open_view(ViewChoice view, Session& session);

// Opens the waveform view as its menu entry does, which asks the meter for its status once more. Returns
// false when it did not open: the command has failed then. `last_message` gives the program's last message.
bool open_waveform_view(Program& program, const std::function<std::string()>& last_message,
                        Terminal& terminal);

// Says that no readings come because the meter has been switched to its other mode; empty when that is not
// so.
std::string other_mode_sentence(const Program& program);

}  // namespace halden
