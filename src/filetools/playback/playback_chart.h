// The chart of one played record, and what is said beside it.
#pragma once

#include <string>

#include "chart/chart.h"
#include "filetools/playback/played_record.h"
#include "screen/language.h"

namespace halden {

// Bars of the orders, or the curve of the samples. Without values the chart is empty and says why.
Chart playback_chart(const PlayedRecord& record, Language language);

// "record 17: lost link"; empty for a record that is shown.
std::string playback_note(const PlayedRecord& record, Language language);

// "day.csv · V1 · % · CT 1 · VT 1"; of waveforms also the range and the clamp factor, which stand in no file,
// and the unit of the scale.
std::string playback_about(const PlaybackFile& file, const PlayedRecord& record, const CurrentScale& currents,
                           Language language);

// Of a picture that leaves the window: that line, "record 17 of 42", date and time.
std::string playback_title(const PlaybackFile& file, const PlayedRecord& record, std::string about,
                           Language language);

}  // namespace halden
