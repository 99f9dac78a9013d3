// What the program adds to a recording in words of its own, in English and Chinese: how it fares, and what
// becomes of lines that could not be written.
#pragma once

#include <string>

#include "formats/data_file.h"
#include "platform/dialogs.h"
#include "screen/language.h"

namespace halden {

enum class RecordingState { no_file, file_ready, automatic, manual };

// For the status line: "recording: 12 lines, 3 waiting (disk full)".
std::string recording_status_text(RecordingState state, const DataFile& file, Language language);

// Whether the lines that wait shall go to another file.
Message question_for_another_file(const DataFile& file, Language language);

// Whether to try again once the rescue files cannot be written either; giving up loses the lines with the
// program or the next data file.
Message question_before_giving_up(const DataFile& file, Language language);

// Where lines are that were written to no file of the user's choice.
std::string rescued_sentence(const std::string& path, Language language);

}  // namespace halden
