// How many records a point of a plot stands for, and the record numbers the user may ask for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace halden {

// From here on a file is drawn as an envelope: each point is the largest and the smallest of several records.
inline constexpr std::size_t records_of_envelope = 3600;

// Of a part that the user has chosen so many records may be drawn one by one.
inline constexpr std::size_t most_records_of_part = 3600;

// The numbers of the first and the last record, counted from 1.
struct RecordRange {
  std::size_t first = 1;
  std::size_t last = 0;

  std::size_t count() const { return last + 1 - first; }
  bool operator==(const RecordRange&) const = default;
};

// What the user asked for; an absent number stands for the file's first or last record.
struct WantedRecords {
  std::optional<std::size_t> first, last;

  bool is_part() const { return first || last; }
  bool operator==(const WantedRecords&) const = default;
};

// Within a file of so many records; `first` may be above `last` then.
RecordRange range_in(const WantedRecords& wanted, std::size_t record_count);

// Records per point: 1 up to the limit, otherwise so many that there are at most 1800 points.
std::size_t record_step(std::size_t records, bool is_part);

std::size_t points_of(std::size_t records, std::size_t step);

// A label stands at the first point and at every so many from there on: about five in all.
std::size_t label_every(std::size_t points);

// What of a file of so many records is to be read for a view from one of the plotted points to another, when
// the view reaches beyond the plotted records or its own would be plotted with a smaller step; otherwise
// nothing. Points before the first have negative numbers.
struct PlottedRecords {
  std::size_t record_count = 0;
  RecordRange range;
  std::size_t step = 1;
};
std::optional<WantedRecords> records_of_view(const PlottedRecords& plotted, int first_point, int last_point);

// An answer to the question for a record number: the range, or what the user is told instead.
struct RangeAnswer {
  RecordRange range;
  Message refusal;  // without text when the range is good

  bool refused() const { return !refusal.text.empty(); }
};

// Whether a plot can start at the record whose number the user typed; the range goes to the end of the file.
RangeAnswer read_start(std::string_view start, std::size_t record_count);

// The range between two numbers the user typed, of at most 3600 records.
RangeAnswer read_range(std::string_view start, std::string_view end, std::size_t record_count);

// The same for numbers, and for a range of any length.
RangeAnswer check_range(const RecordRange& range, std::size_t record_count);

}  // namespace halden
