// The texts about a recording in English and Chinese: its state, and what happens to lines that could not be
// written.
#pragma once

#include <string>
#include <string_view>

#include "formats/data_file.h"
#include "platform/dialogs.h"
#include "screen/language.h"

namespace halden {

enum class RecordingState { no_file, file_ready, automatic, manual };

struct RecordingStatus {
  RecordingState state = RecordingState::no_file;
  std::size_t lost_lines = 0;    // of the lines, those that say that the meter did not answer
  bool columns_changed = false;  // a line was recorded with another wiring system than that of the header
  bool other_source = false;     // the view that runs shows another kind, input or option than the file's
  bool sign_cut = false;         // a field of a record has lost its minus sign
};

// What the user is told when a waveform file is created with a shorter sampling time.
inline constexpr std::string_view shortest_waveform_sampling_text =
    "The minimum sampling time for recording waveform is 4 seconds";

// For the status line: "recording day.csv: 12 lines, 5 lost, 3 waiting (disk full), a minus sign was cut
// off".
std::string recording_status_text(const RecordingStatus& status, const DataFile& file, Language language);

// Asks whether to write the waiting lines to another file.
Message question_for_another_file(const DataFile& file, Language language);

// Asks whether to try again when the rescue files cannot be written either; otherwise the lines are lost.
Message question_before_giving_up(const DataFile& file, Language language);

// Says how many of the waiting lines are lost when they are given up, and why.
std::string lost_sentence(const DataFile& file, Language language);

// Says which file holds rescued lines.
std::string rescued_sentence(const std::string& path, Language language);

}  // namespace halden
