#include "filetools/power_plot/record_times.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "formats/power_reader.h"

namespace halden {

namespace {

constexpr TimeOrder seconds_of_day = 86400;

// Days need an order only, no exact distance.
constexpr TimeOrder days_of_month = 31, days_of_year = 12 * days_of_month;

// Up to three whole numbers with a separator between them; an empty list for any other text.
struct Numbers {
  std::array<std::int64_t, 3> values{};
  std::size_t count = 0;
  std::size_t first_length = 0;  // in characters
};

Numbers numbers_in(std::string_view text, char separator) {
  Numbers numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (numbers.count < numbers.values.size()) {
    if (at == end || *at < '0' || *at > '9') return {};
    const auto result = std::from_chars(at, end, numbers.values[numbers.count]);
    if (result.ec != std::errc()) return {};
    if (numbers.count++ == 0) numbers.first_length = static_cast<std::size_t>(result.ptr - at);
    if (result.ptr == end) return numbers;
    if (*result.ptr != separator) return {};
    at = result.ptr + 1;
  }
  return {};
}

// "2024-03-15" of a downloaded record, "03-15-2024" of a live one.
std::optional<TimeOrder> day_of(std::string_view text) {
  constexpr std::size_t year_length = 4;
  const Numbers date = numbers_in(text, '-');
  if (date.count != 3) return std::nullopt;
  const auto [a, b, c] = date.values;
  const bool year_first = date.first_length == year_length;
  const auto [year, month, day] = year_first ? std::array{a, b, c} : std::array{c, a, b};
  if (year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  return year * days_of_year + month * days_of_month + day;
}

std::optional<TimeOrder> seconds_of(std::string_view text) {
  const Numbers time = numbers_in(text, ':');
  const auto [hours, minutes, seconds] = time.values;
  if (time.count < 2 || hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
  return (hours * 60 + minutes) * 60 + seconds;
}

// A place relative to the first record's day.
TimeOrder order_of(const RecordPlace& place, TimeOrder first_day) {
  return place.day.value_or(first_day) * seconds_of_day + *place.time;
}

class RecordSearch {
 public:
  RecordSearch(const PlaceRange& places, WantedRecords& found) : places_(places), found_(found) {}

  void look_at(std::string_view line, std::size_t number) {
    if (!has_date_and_time(line)) return;
    const std::optional<TimeOrder> day = day_of(date_in_line(line));
    const std::optional<TimeOrder> seconds = seconds_of(time_in_line(line));
    if (!day || !seconds) return;
    if (number_of_looks_++ == 0) first_day_ = *day;
    const TimeOrder order = *day * seconds_of_day + *seconds;
    if (seeks_first() && !found_.first && order >= order_of(*places_.first, first_day_))
      found_.first = number;
    if (seeks_last() && order <= order_of(*places_.last, first_day_)) found_.last = number;
  }

  bool seeks_first() const { return places_.first && places_.first->time; }
  bool seeks_last() const { return places_.last && places_.last->time; }

 private:
  const PlaceRange& places_;
  WantedRecords& found_;
  TimeOrder first_day_ = 0;
  std::size_t number_of_looks_ = 0;
};

}  // namespace

std::optional<RecordPlace> read_record_place(std::string_view text) {
  if (const Numbers number = numbers_in(text, ' '); number.count == 1)
    return RecordPlace{static_cast<std::size_t>(number.values[0]), {}, {}};
  const std::size_t gap = text.find_first_of(" T");
  const bool has_date = gap != std::string_view::npos;
  RecordPlace place;
  place.time = seconds_of(has_date ? text.substr(gap + 1) : text);
  if (has_date) place.day = day_of(text.substr(0, gap));
  if (!place.time || has_date != place.day.has_value()) return std::nullopt;
  return place;
}

WantedRecords find_records(Files& files, const std::string& path, const PlaceRange& places) {
  WantedRecords found;
  if (places.first) found.first = places.first->number;
  if (places.last) found.last = places.last->number;
  if (!places.has_time()) return found;
  OpenedFile opened = files.open(path);
  if (!opened.reader) return found;
  PowerFileReader file(std::move(opened.reader));
  RecordSearch search(places, found);
  PowerRecordLine record;
  while (file.next(record)) search.look_at(record.text, file.records_read());
  if (search.seeks_first() && !found.first) found.first = file.records_read() + 1;
  if (search.seeks_last() && !found.last) found.last = 0;
  return found;
}

}  // namespace halden
