// The texts about a recording in English and Chinese: its state, and what happens to lines that could not be
// written.
#pragma once

#include <string>

#include "formats/data_file.h"
#include "platform/dialogs.h"
#include "screen/language.h"

namespace halden {

enum class RecordingState { no_file, file_ready, automatic, manual };

// For the status line: "recording: 12 lines, 3 waiting (disk full)".
std::string recording_status_text(RecordingState state, const DataFile& file, Language language);

// Asks whether to write the waiting lines to another file.
Message question_for_another_file(const DataFile& file, Language language);

// Asks whether to try again when the rescue files cannot be written either; otherwise the lines are lost with
// the end of the program or the next data file.
Message question_before_giving_up(const DataFile& file, Language language);

// Says which file holds rescued lines.
std::string rescued_sentence(const std::string& path, Language language);

}  // namespace halden
