#include "formats/wave_reader.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>

#include "formats/file_headers.h"
#include "formats/record_field.h"
#include "formats/waveform_tags.h"
#include "readings/harmonics.h"
#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t field_length = field_text_length + 1;
constexpr std::size_t fields_before_orders = 9;
constexpr std::string_view date_and_time_characters = "0123456789-/.:, ";
constexpr std::string_view digits = "0123456789";

// The text behind "CT=" up to the next separator; in a waveform file also up to a blank. A name stands behind
// a separator.
std::string setting_in(std::string_view line, std::string_view name, std::string_view separators) {
  std::size_t at = line.find(name);
  while (at != std::string_view::npos && (at == 0 || separators.find(line[at - 1]) == std::string_view::npos))
    at = line.find(name, at + 1);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = line.substr(at + name.size());
  return std::string(without_blanks(rest.substr(0, rest.find_first_of(separators))));
}

std::string_view if_made_of(std::string_view text, std::string_view characters) {
  const bool fits = text.find_first_not_of(characters) == std::string_view::npos;
  return fits && text.find_first_of(digits) != std::string_view::npos ? text : std::string_view();
}

bool is_header(std::string_view line) {
  return line.starts_with("DATE, TIME") || read_wave_settings(line).kind;
}

// Everything but whether a record is whole.
void read_start(std::string_view line, WaveLine& start) {
  if (line.size() > field_text_length) {
    start.date = if_made_of(without_blanks(line.substr(0, field_text_length)), "0123456789-/.");
    const std::string_view time = line.substr(field_length, field_text_length);
    if (!start.date.empty())
      start.time = if_made_of(without_blanks(time.substr(0, time.find(','))), "0123456789:");
  }
  const std::string_view first_two = line.substr(0, 2 * field_length);
  if (line.find(", NO COM, ") != std::string_view::npos)
    start.kind = WaveLineKind::lost_link;
  else if (is_header(line))
    start.kind = WaveLineKind::header;
  else if (!if_made_of(first_two, date_and_time_characters).empty())
    start.kind = WaveLineKind::torn;
}

// A comma behind every ten characters and nowhere else.
bool has_fields(std::string_view line, std::size_t count) {
  if (line.size() != count * field_length) return false;
  for (std::size_t at = 0; at < line.size(); ++at)
    if ((line[at] == ',') != (at % field_length == field_text_length)) return false;
  return true;
}

std::optional<int> first_order_of(std::string_view range) {
  if (range == "0 to 50" || range == "0 to 99") return 0;
  return range == "50 to 100" ? std::optional(50) : std::nullopt;
}

// Behind the last sample; nothing when fewer are numbers.
std::optional<std::size_t> read_samples(std::string_view line, std::size_t at,
                                        std::array<std::int16_t, waveform_samples>& samples) {
  for (std::int16_t& sample : samples) {
    at = std::min(line.find_first_not_of(' ', at), line.size());
    const auto read = std::from_chars(line.data() + at, line.data() + line.size(), sample);
    if (read.ec != std::errc()) return std::nullopt;
    at = static_cast<std::size_t>(read.ptr - line.data());
    if (at == line.size() || line[at] != ' ') return std::nullopt;
  }
  return at;
}

bool read_waveform(std::string_view line, WaveformLine& read) {
  const std::size_t begin = 2 * field_length;
  if (line.size() <= begin || line[begin] != 'B') return false;
  const std::optional<std::size_t> behind_samples = read_samples(line, begin + 1, read.samples);
  if (!behind_samples) return false;
  const WaveformTagPlaces places = find_waveform_tags(line, *behind_samples);
  if (!places.complete()) return false;
  const std::optional<WaveFields> fields = waveform_fields(waveform_characters(line, places));
  if (fields) read.fields = *fields;
  return fields.has_value();
}

}  // namespace

std::int16_t ratio_of(const std::string& text) {
  return std::max<std::int16_t>(to_int16(leading_number(text)).value_or(1), 1);
}

WaveSettings read_wave_settings(std::string_view line) {
  WaveSettings settings;
  if (line.substr(0, line.find(',')) == "HARMO") settings.kind = WaveFileKind::harmonics;
  if (line.substr(0, line.find(' ')) == "WAVE") settings.kind = WaveFileKind::waveform;
  const std::string_view separators = settings.kind == WaveFileKind::harmonics ? "," : ", ";
  for (const auto& [name, text] :
       std::initializer_list<std::pair<std::string_view, std::string*>>{{"Hz=", &settings.hz},
                                                                        {"MD=", &settings.md},
                                                                        {"SEC=", &settings.sec},
                                                                        {"CT=", &settings.ct},
                                                                        {"VT=", &settings.vt},
                                                                        {"INPUT=", &settings.input},
                                                                        {"SYS=", &settings.sys}})
    *text = setting_in(line, name, separators);
  settings.count = to_int16(leading_number(setting_in(line, "NO.=", separators))).value_or(0);
  const std::string option = setting_in(line, "OPTION=", separators);
  if (!option.empty()) settings.option = option.front();
  return settings;
}

HarmonicsLine read_harmonics_line(std::string_view line) {
  HarmonicsLine read;
  read_start(line, read);
  for (const std::size_t orders : {harmonic_orders, std::size_t{stored_order_count}})
    if (has_fields(line, fields_before_orders + orders)) read.order_count = orders;
  if (read.order_count == 0) return read;
  read.kind = WaveLineKind::record;
  const auto field = [line](std::size_t k) {
    return without_blanks(line.substr(k * field_length, field_text_length));
  };
  std::size_t k = 0;
  for (std::string_view* const text : {&read.date, &read.time, &read.rms, &read.peak_plus, &read.peak_minus,
                                       &read.thd, &read.fundamental, &read.hz, &read.range})
    *text = field(k++);
  read.first_order = first_order_of(read.range);
  read.order_fields = line.substr(fields_before_orders * field_length);
  return read;
}

WaveformLine read_waveform_line(std::string_view line) {
  WaveformLine read;
  read_start(line, read);
  if (!read_waveform(line, read)) {
    read.samples = {};
    return read;
  }
  read.kind = WaveLineKind::record;
  read.date = without_blanks(line.substr(0, field_text_length));
  read.time = without_blanks(line.substr(field_length, field_text_length));
  return read;
}

}  // namespace halden
