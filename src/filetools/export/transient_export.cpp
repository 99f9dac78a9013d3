#include "filetools/export/transient_export.h"

#include <array>
#include <cstdint>
#include <optional>

#include "formats/record_field.h"

namespace halden {

namespace {

constexpr std::size_t field_length = field_text_length + 1;
constexpr std::size_t commas = 5;
constexpr std::size_t event_length = (commas + 1) * field_length;  // the last field has no comma
constexpr std::string_view column_names_start = "       NO.,";
constexpr std::string_view reference_name = "REF=";
constexpr std::string_view deviation_name = "SD%=";

bool is_event(std::string_view line) {
  if (line.size() != event_length || line.starts_with(column_names_start)) return false;
  for (std::size_t at = 0; at < line.size(); ++at)
    if ((line[at] == ',') != (at % field_length == field_text_length && at < commas * field_length))
      return false;
  return true;
}

std::string_view field_of(std::string_view line, std::size_t index) {
  if (!is_event(line)) return {};
  return without_blanks(line.substr(index * field_length, index < commas ? field_text_length : field_length));
}

std::string setting_in(std::string_view line, std::string_view name) {
  const std::size_t at = line.find(name);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = line.substr(at + name.size());
  return std::string(without_blanks(rest.substr(0, rest.find(','))));
}

// "01:02:30" is a day, two hours and half an hour. A blank may stand for a leading zero.
std::optional<std::int64_t> seconds_in(std::string_view event_time) {
  constexpr std::array<std::int64_t, 3> units_s = {86400, 3600, 60};
  const std::string text =
      std::string(8 - std::min<std::size_t>(event_time.size(), 8), ' ').append(event_time);
  std::int64_t seconds = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at] == ' ' ? '0' : text[at];
    if (at % 3 == 2 ? c != ':' : (c < '0' || c > '9')) return std::nullopt;
    if (at % 3 < 2) seconds += units_s[at / 3] * (c - '0') * (at % 3 == 0 ? 10 : 1);
  }
  return text.size() == 8 ? std::optional(seconds) : std::nullopt;
}

}  // namespace

LineMeaning TransientExport::take(std::string_view line) {
  if (is_event(line)) return LineMeaning::record;
  if (line.starts_with(transient_file_start)) return LineMeaning::settings;
  if (line.starts_with(reference_name)) {
    reference_ = setting_in(line, reference_name);
    deviation_ = setting_in(line, deviation_name);
  }
  const bool is_header = line.starts_with(reference_name) || line.starts_with("START RECORDING:") ||
                         line.starts_with(column_names_start);
  return is_header ? LineMeaning::column_names : meaning_of_other(line);
}

std::vector<ValueColumn> TransientExport::columns() {
  return {{"NO", ""},         {"EVENT_TIME", "s"}, {"CYCLES", ""},
          {"CONDITIONS", ""}, {"REF", "V"},        {"SD", "percent"}};
}

std::string_view TransientExport::date_in(std::string_view line) const { return field_of(line, 2); }
std::string_view TransientExport::time_in(std::string_view line) const { return field_of(line, 3); }

void TransientExport::add_values(std::string_view line, ValueRow& row) {
  row.add_field(field_of(line, 0));
  if (const std::optional<std::int64_t> seconds = seconds_in(field_of(line, 1)))
    row.add_number(*seconds, 0);
  else
    row.add_field("");
  row.add_field(field_of(line, 4));
  row.add_text(field_of(line, 5));
  row.add_field(reference_);
  row.add_field(deviation_);
}

}  // namespace halden
