// How the meter was set while it recorded a file, and what these settings mean, alike for all kinds of stored
// files.
#pragma once

#include <cstdint>
#include <string>

#include "formats/file_headers.h"
#include "link/meter_status.h"
#include "readings/raw_values.h"

namespace halden {

struct RecordedSettings {
  Scaling scaling;                  // without a limit: each record has texts of its own
  std::int16_t interval_s = 0;      // 0: no time passes between records, no demand period ends
  std::int16_t frequency_code = 0;  // 1 50 Hz, 2 60 Hz, any other automatic
  std::int16_t channel = 0;         // V1, I1, V2, I2, V3, I3; any other has no name
  std::string start_date;           // "2024-03-15"
  std::string start_time;           // "12:30:44"
};

// Those of the stored file that is selected, as the status tells them. A ratio of 0 was never set and counts
// as 1; a negative interval, which only a corrupt status holds, counts as 0.
RecordedSettings recorded_settings_of(const MeterStatus& status, std::string start_date,
                                      std::string start_time);

// The settings as they are shown: "Auto", "15", "2", "1", "1".
struct RecordedTexts {
  std::string hz, md, sec, ct, vt;

  // Valid as long as the texts.
  SettingTexts views() const { return {hz, md, sec, ct, vt}; }
};

RecordedTexts recorded_texts(const RecordedSettings& recorded);

}  // namespace halden
