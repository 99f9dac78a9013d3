#include "filetools/power_plot/plot_plan.h"

#include <algorithm>
#include <cstdint>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t points_of_envelope = 1800;
constexpr double labels_of_plot = 5;

constexpr double highest_number = 1e15;  // every whole number up to here is a double

RangeAnswer refused(std::string text, Icon icon = Icon::none) { return {{}, {std::move(text), {}, icon}}; }

double typed_number(std::string_view text) {
  return std::min(round_half_even(leading_number(text)), highest_number);
}

}  // namespace

RecordRange range_in(const WantedRecords& wanted, std::size_t record_count) {
  return {wanted.first.value_or(1), wanted.last.value_or(record_count)};
}

std::size_t record_step(std::size_t records, bool is_part) {
  if (records < records_of_envelope || (is_part && records <= most_records_of_part)) return 1;
  return points_of(records, points_of_envelope);
}

std::size_t points_of(std::size_t records, std::size_t step) { return (records + step - 1) / step; }

std::size_t label_every(std::size_t points) {
  const double every = round_half_even(static_cast<double>(points) / labels_of_plot);
  return std::max<std::size_t>(static_cast<std::size_t>(every), 1);
}

std::optional<WantedRecords> records_of_view(const PlottedRecords& plotted, int first_point, int last_point) {
  const auto count = static_cast<std::int64_t>(plotted.record_count);
  const auto step = static_cast<std::int64_t>(plotted.step);
  const auto start = static_cast<std::int64_t>(plotted.range.first);
  const std::int64_t first = std::clamp<std::int64_t>(start + first_point * step, 1, count);
  const std::int64_t last =
      std::clamp<std::int64_t>(start + (last_point + std::int64_t{1}) * step - 1, 1, count);
  if (last <= first) return std::nullopt;
  const RecordRange seen{static_cast<std::size_t>(first), static_cast<std::size_t>(last)};
  const bool beyond = seen.first < plotted.range.first || seen.last > plotted.range.last;
  const bool is_whole = seen == RecordRange{1, plotted.record_count};
  if (!beyond && record_step(seen.count(), !is_whole) >= plotted.step) return std::nullopt;
  if (is_whole) return WantedRecords{};
  return WantedRecords{seen.first, seen.last};
}

RangeAnswer read_start(std::string_view start, std::size_t record_count) {
  const double first = typed_number(start);
  if (first < 1) return refused("Negative number is not allowed");
  if (first > static_cast<double>(record_count))
    return refused("start record > total records", Icon::exclamation);
  return {{static_cast<std::size_t>(first), record_count}, {}};
}

RangeAnswer read_range(std::string_view start, std::string_view end, std::size_t record_count) {
  const RangeAnswer from = read_start(start, record_count);
  if (from.refused()) return from;
  const auto last = static_cast<std::size_t>(std::max(typed_number(end), 0.0));
  const RangeAnswer answer = check_range({from.range.first, last}, record_count);
  if (answer.refused() || answer.range.count() <= most_records_of_part) return answer;
  return refused("Starting record " + std::to_string(answer.range.first) + ", ending record " +
                 std::to_string(last) + ", total records " + std::to_string(record_count) + " > 3600");
}

RangeAnswer check_range(const RecordRange& range, std::size_t record_count) {
  const RangeAnswer from = read_start(std::to_string(range.first), record_count);
  if (from.refused()) return from;
  if (range.last <= range.first) return refused("End record <= Start record");
  if (range.last > record_count) return refused("End record > total records");
  return {range, {}};
}

}  // namespace halden
