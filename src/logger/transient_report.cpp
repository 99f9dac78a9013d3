#include "logger/transient_report.h"

#include <algorithm>
#include <array>
#include <optional>

#include "formats/record_field.h"
#include "logger/meter_time.h"
#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr std::string_view column_line = "       NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS";
constexpr std::string_view blanks = " \t";
constexpr std::string_view line_ends = "\r\n";
constexpr std::string_view white_space = " \t\r\n";
constexpr std::string_view separators = ", \t\r\n";

constexpr std::size_t header_count = 9;
constexpr int century = 2000;
constexpr int no_clock_part = -9999;
constexpr double cycles_turn = 65536;  // the meter's counter has 16 bits
constexpr std::size_t conditions_length = 11;

struct ReportHeader {
  MeterTime start;
  double pt_ratio = 1;
  double reference = 0;
  double sd_percent = 0;
};

struct EventFields {
  std::string_view number, elapsed, cycles, conditions;
};

// The text before the first character of `ends`; `text` begins with that character afterwards.
std::string_view take_until(std::string_view& text, std::string_view ends) {
  const std::string_view taken = text.substr(0, text.find_first_of(ends));
  text.remove_prefix(taken.size());
  return taken;
}

void skip(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

void skip_one(std::string_view& text, std::string_view expected) {
  if (text.starts_with(expected)) text.remove_prefix(expected.size());
}

void skip_line_end(std::string_view& text) {
  skip_one(text, "\r");
  skip_one(text, "\n");
}

// A comma, blanks or line ends, or blanks and line ends around a comma.
void skip_separator(std::string_view& text) {
  skip(text, white_space);
  skip_one(text, ",");
  skip(text, white_space);
}

// Behind the last number the rest of its line ends the header. An event behind a comma keeps its columns.
void skip_end_of_header(std::string_view& text) {
  std::string_view rest = text;
  skip(rest, blanks);
  if (!rest.empty() && line_ends.find(rest[0]) == std::string_view::npos) {
    text.remove_prefix(1);
    return;
  }
  skip_line_end(rest);
  text = rest;
}

std::optional<std::array<double, header_count>> take_header_numbers(std::string_view& report) {
  std::array<double, header_count> numbers{};
  skip(report, white_space);
  for (std::size_t position = 0; position < header_count; ++position) {
    if (position > 0) skip_separator(report);
    const std::optional<double> number = field_number(take_until(report, separators));
    if (!number) return std::nullopt;
    numbers[position] = *number;
  }
  skip_end_of_header(report);
  return numbers;
}

// A number that is no part of a date or time at all gives one that does not exist.
int clock_part(double number) { return to_int16(number).value_or(no_clock_part); }

std::optional<ReportHeader> take_header(std::string_view& report) {
  const auto numbers = take_header_numbers(report);
  if (!numbers) return std::nullopt;
  const auto& [year, month, day, hour, minute, second, pt_ratio, reference, sd_percent] = *numbers;
  ReportHeader header;
  header.start = {{century + clock_part(year), clock_part(month), clock_part(day)},
                  clock_part(hour),
                  clock_part(minute),
                  clock_part(second)};
  header.pt_ratio = pt_ratio == 0 ? 1 : pt_ratio;  // 0 was never set
  header.reference = reference;
  header.sd_percent = sd_percent;
  return header;
}

std::string header_text(const ReportHeader& header, const Date& today) {
  const std::string reference =
      header.reference == over_range
          ? std::string(overload_text)
          : prefix_text(header.reference * header.pt_ratio, 0, Division::integer, voltage_units);
  std::string text = "TODAY: " + record_date(today);
  text.append(line_end).append("START RECORDING:");
  if (exists(header.start))
    text.append(date_text(header.start)).append(" ").append(second_text(header.start));
  text.append(line_end);
  text.append("REF=").append(reference).append(" ,SD%=");
  text.append(format_pattern(header.sd_percent, "####0")).append("%").append(line_end);
  return text.append(column_line).append(line_end);
}

// `position` counts from 1. What the line does not hold is missing.
std::string_view columns(std::string_view line, std::size_t position, std::size_t length) {
  return line.size() < position ? std::string_view() : line.substr(position - 1, length);
}

// The sign of a negative count shifts what follows it.
EventFields cut_event(std::string_view line) {
  const std::size_t sign = line.find('-') == std::string_view::npos ? 0 : 1;
  return {columns(line, 1, 3), columns(line, 4, 8), columns(line, 13, 5 + sign), columns(line, 19 + sign, 2)};
}

// Nothing when the line is short or malformed, and when the recording has no valid start.
std::optional<MeterTime> event_time(const MeterTime& start, const EventFields& fields) {
  const std::optional<int> elapsed = elapsed_seconds(fields.elapsed);
  if (!elapsed || !field_number(fields.cycles) || !field_number(fields.conditions) || !exists(start))
    return std::nullopt;
  return time_after(start, *elapsed);
}

// A count above 32767 arrives as a negative number.
std::string cycles_text(std::string_view cycles) {
  const std::optional<double> count = field_number(cycles);
  return count && *count < 0 ? format_pattern(*count + cycles_turn, "00000") : std::string(cycles);
}

std::string_view conditions_text(std::string_view code) {
  constexpr std::array<std::string_view, 8> texts = {"?",      "1(HI)",     "2(LO)",     "3(HI+LO)",
                                                     "4(OUT)", "5(HI+OUT)", "6(LO+OUT)", "7(HI+LO+OUT)"};
  for (std::size_t number = 1; number < texts.size(); ++number)
    if (field_number(code) == static_cast<double>(number)) return texts[number];
  return texts[0];
}

// The longest one, of twelve characters, keeps its last eleven.
std::string conditions_field(std::string_view text) {
  if (text.size() > conditions_length) text.remove_prefix(text.size() - conditions_length);
  return std::string(conditions_length - text.size(), ' ').append(text);
}

std::string event_line(const MeterTime& start, const EventFields& fields) {
  const std::optional<MeterTime> time = event_time(start, fields);
  std::string line = record_field(fields.number) + record_field(fields.elapsed);
  line += record_field(time ? date_text(*time) : "");
  line += record_field(time ? minute_text(*time) : "");
  line += record_field(cycles_text(fields.cycles));
  return line.append(conditions_field(conditions_text(fields.conditions))).append(line_end);
}

}  // namespace

TransientEvents convert_transient_report(std::string_view report, const Date& today) {
  if (report.empty()) return {TransientOutcome::nothing_received};
  const std::optional<ReportHeader> header = take_header(report);
  if (!header) return {TransientOutcome::incomplete};

  TransientEvents events{TransientOutcome::converted, header_text(*header, today)};
  while (!report.empty()) {
    const std::string_view line = take_until(report, line_ends);
    skip_line_end(report);
    if (line.find_first_not_of(blanks) == std::string_view::npos) continue;
    events.lines += event_line(header->start, cut_event(line));
    ++events.records;
  }
  return events;
}

std::string transient_count_text(const TransientEvents& events) {
  return format_pattern(static_cast<double>(events.records), "0") + " records converted";
}

}  // namespace halden
