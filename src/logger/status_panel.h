// The status panel of the datalogger window: how the selected stored file was recorded.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "link/meter_status.h"
#include "screen/language.h"
#include "screen/window.h"

namespace halden {

// When the records of a file begin: "2024-03-15" and "12:30:44".
struct RecordedStart {
  std::string date;
  std::string time;
};

// Start of the file and how many files there are; when there are some, settings, kind and number of the
// file. Codes without a meaning show "?".
void show_status(const MeterStatus& status, Language language, Window& logger);

// When the selected file begins, as the boxes of the window have it.
RecordedStart start_of(const Window& logger);

inline constexpr Text no_data_recorded = {"No Data Recorded", "沒有任何記錄資料"};

// "Power", "Harmonics", "Hardcopy" or "?"
std::string_view kind_text(std::int16_t logger_data_type, Language language);

}  // namespace halden
