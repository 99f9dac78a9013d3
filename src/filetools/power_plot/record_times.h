// Where in a power data file a time of day lies, for a user who knows when something happened but not the
// number of the record.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "filetools/power_plot/plot_plan.h"
#include "platform/files.h"

namespace halden {

// A number that is larger the later the time is.
using TimeOrder = std::int64_t;

// A record's number or its time, as the user types it: "1200", "12:30", "12:30:44", "2024-03-15 12:30",
// "03-15-2024 12:30:44" (a "T" may stand in place of the blank). Without a date it is that of the file's
// first record.
struct RecordPlace {
  std::optional<std::size_t> number;
  std::optional<TimeOrder> day;   // of a typed date
  std::optional<TimeOrder> time;  // in seconds
};

// Nothing for any other text.
std::optional<RecordPlace> read_record_place(std::string_view text);

struct PlaceRange {
  std::optional<RecordPlace> first, last;

  // Only then the file has to be searched.
  bool has_time() const { return (first && first->time) || (last && last->time); }
};

// The first record at or behind the time of `first`, and the last one at or before that of `last`. A time
// behind all records gives the number after the last one, one before all of them 0. Lines written while the
// meter was silent count, other lines without date and time do not. A file that cannot be read gives no
// records.
WantedRecords find_records(Files& files, const std::string& path, const PlaceRange& places);

}  // namespace halden
