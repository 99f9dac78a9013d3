#include "formats/power_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace halden {

namespace {

constexpr std::size_t field_length = field_text_length + 1;
constexpr std::size_t columns_before_readings = 2;  // DATE and TIME

constexpr std::array<std::string_view, 4> wiring_names = {"1P2W", "1P3W", "3P3W", "3P4W"};

template <Wiring wiring>
constexpr std::size_t record_length = field_length*(columns_before_readings + power_column_count(wiring));

// 1 where a record has a comma.
constexpr auto comma_places = [] {
  std::array<std::uint8_t, record_length<Wiring::w3p4w>> places{};
  for (std::size_t at = field_text_length; at < places.size(); at += field_length) places[at] = 1;
  return places;
}();

// A comma behind every ten characters and nowhere else. One loop of known length over all bytes without a
// branch becomes operations on many bytes at once: this is the larger part of the work per record.
template <Wiring wiring>
bool is_record_of(std::string_view line) {
  if (line.size() != record_length<wiring>) return false;
  std::uint8_t different = 0;
  for (std::size_t at = 0; at < record_length<wiring>; ++at)
    different = static_cast<std::uint8_t>(different | ((line[at] == ',') ^ comma_places[at]));
  return different == 0;
}

// The field up to its comma, if it has only digits and separators.
std::string_view digits_in(std::string_view line, std::size_t field, char separator) {
  if (line.size() < field * field_length) return {};
  std::string_view text = line.substr(field * field_length, field_text_length);
  text = without_blanks(text.substr(0, text.find(',')));
  const auto fits = [separator](char c) { return (c >= '0' && c <= '9') || c == separator; };
  return std::all_of(text.begin(), text.end(), fits) ? text : std::string_view();
}

// "CT=" up to the next comma.
std::string setting_in(std::string_view line, std::string_view name) {
  const std::size_t at = line.find(name);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = line.substr(at + name.size());
  return std::string(without_blanks(rest.substr(0, rest.find(','))));
}

}  // namespace

PowerSettings read_power_settings(std::string_view settings_line) {
  const std::string_view name = settings_line.substr(0, settings_line.find(','));
  const auto found = std::find(wiring_names.begin(), wiring_names.end(), name);
  PowerSettings settings{{}, setting_in(settings_line, ",CT="), setting_in(settings_line, ",VT=")};
  if (found != wiring_names.end()) settings.wiring = Wiring(found - wiring_names.begin());
  return settings;
}

PowerFileReader::PowerFileReader(std::unique_ptr<FileReader> file) : lines_(std::move(file)) {
  std::string_view line;
  if (lines_.next(line)) settings_ = read_power_settings(line);
  lines_.next(line);
}

bool PowerFileReader::next(PowerRecordLine& record) {
  start_of_record_ = lines_.position();
  if (!lines_.next(record.text)) return false;
  record.wiring = whole_record_wiring(record.text);
  ++records_read_;
  return true;
}

std::size_t PowerFileReader::estimated_records(const PowerRecordLine& last) const {
  const std::size_t columns = settings_.wiring ? power_column_count(*settings_.wiring) : 0;
  const std::uint64_t line_end = lines_.position() - start_of_record_ - last.text.size();
  const std::uint64_t length = date_and_time_length + columns * field_length + line_end;
  const std::uint64_t rest = std::max(lines_.length(), lines_.position()) - lines_.position();
  return records_read_ + static_cast<std::size_t>((rest + length - 1) / length);
}

std::optional<Wiring> whole_record_wiring(std::string_view line) {
  if (is_record_of<Wiring::w3p4w>(line)) return Wiring::w3p4w;
  if (is_record_of<Wiring::w3p3w>(line)) return Wiring::w3p3w;
  if (is_record_of<Wiring::w1p3w>(line)) return Wiring::w1p3w;
  if (is_record_of<Wiring::w1p2w>(line)) return Wiring::w1p2w;
  return std::nullopt;
}

std::string_view date_in_line(std::string_view line) { return digits_in(line, 0, '-'); }
std::string_view time_in_line(std::string_view line) { return digits_in(line, 1, ':'); }

bool has_date_and_time(std::string_view line) {
  return line.size() >= date_and_time_length && line[field_text_length] == ',' &&
         line.substr(field_length, field_length).find(',') != std::string_view::npos &&
         !date_in_line(line).empty() && !time_in_line(line).empty();
}

}  // namespace halden
