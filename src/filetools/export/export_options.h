// How the numbers of a data file are written for other programs.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace halden {

enum class TableFormat : std::uint8_t { csv, json };

// A program set to a country that writes "3,14" needs a decimal comma, and then a semicolon between the
// values.
enum class DecimalMark : std::uint8_t { point, comma };
enum class Separator : std::uint8_t { comma, semicolon };

// In which order a date has day and month where the file does not settle it.
enum class DateOrder : std::uint8_t { unknown, month_day_year, day_month_year, year_month_day };

struct ExportOptions {
  TableFormat format = TableFormat::csv;
  DecimalMark decimal = DecimalMark::point;  // JSON always has points
  Separator separator = Separator::comma;    // of CSV; differs from the decimal mark
  DateOrder dates = DateOrder::unknown;

  // What scales the currents of a waveform file, which does not hold it: the meter's current range 0 to 3,
  // and the factor of its clamp, 1.0, 1.2 or 3.0.
  std::int16_t current_range = 0;
  float current_scale = 1.0F;
};

// By the ending of the file's name, ".csv" or ".json" in any case; nothing for any other.
std::optional<TableFormat> table_format(std::string_view path);

}  // namespace halden
