// Reads a power data file, live or downloaded, line by line. It is the only reader of such files.
//
// A whole record is a line of 17, 20, 28 or 38 fields, each of ten characters and a comma; the number of
// fields is that of the columns of its wiring system (formats/power_file.h). One file may hold several,
// because a recording can be continued with another wiring. Every other line behind the two header lines is a
// record without readings: the line written while the meter was silent, header lines of a continued
// recording, a line cut off by a power failure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "formats/field_reading.h"
#include "formats/power_file.h"
#include "formats/text_lines.h"
#include "readings/wiring.h"

namespace halden {

struct PowerRecordLine {
  std::string_view text;         // without its line end
  std::optional<Wiring> wiring;  // of a whole record; absent for every other line
};

// What the first line of a file says.
struct PowerSettings {
  std::optional<Wiring> wiring;  // absent when this is no power data file
  std::string ct, vt;            // the transformer ratios as written
};

PowerSettings read_power_settings(std::string_view settings_line);

class PowerFileReader {
 public:
  // Reads the two header lines.
  explicit PowerFileReader(std::unique_ptr<FileReader> file);

  const PowerSettings& settings() const { return settings_; }

  // The next record; false behind the last one. Its text is valid until the next call.
  bool next(PowerRecordLine& record);

  // How many records the file has if all behind the given one, which was returned last, are whole records of
  // the wiring in the settings and have the same line end.
  std::size_t estimated_records(const PowerRecordLine& last) const;

  std::size_t records_read() const { return records_read_; }
  std::uint64_t position() const { return lines_.position(); }
  std::uint64_t length() const { return lines_.length(); }
  bool failed() const { return lines_.failed(); }

 private:
  TextLines lines_;
  PowerSettings settings_;
  std::size_t records_read_ = 0;
  std::uint64_t start_of_record_ = 0;  // of the one returned last
};

// The wiring system of a whole record.
std::optional<Wiring> whole_record_wiring(std::string_view line);

// The ten characters of a column, counted from the first one behind DATE and TIME, of a whole record.
inline std::string_view power_field(std::string_view whole_record, std::size_t column) {
  constexpr std::size_t columns_before = 2;
  return whole_record.substr((columns_before + column) * (field_text_length + 1), field_text_length);
}

// "03-15-2024" and "12:30:44" at the start of any line that has them there, otherwise empty.
std::string_view date_in_line(std::string_view line);
std::string_view time_in_line(std::string_view line);

// Whether the line has both, each up to its comma: every record, also one written while the meter was silent.
bool has_date_and_time(std::string_view line);

// The characters that DATE and TIME of a whole record take with their commas; no line with both is shorter.
inline constexpr std::size_t date_and_time_length = 2 * (field_text_length + 1);

}  // namespace halden
