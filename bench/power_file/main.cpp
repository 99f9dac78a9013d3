// Writes a 3P4W power data file of any length to measure with: 1,000,000 records are 418 MB.
//
//   halden-power-file RECORDS FILE [LOST]    LOST lines of a silent meter are spread among the records

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>

#include "formats/file_headers.h"
#include "formats/power_file.h"
#include "formats/record_field.h"
#include "readings/patterns.h"

namespace halden {
namespace {

constexpr double seconds_of_day = 86400;

std::string clock_text(long second) {
  return counts_text(second / 3600 % 24, 2, 0, ":") + counts_text(second / 60 % 60, 2, 0, ":") +
         counts_text(second % 60, 2, 0, "");
}

// Readings that rise and fall over a day; from 10 KW on they have one digit less behind the point.
std::string record_at(long number) {
  const double day = std::sin(6.28 * 2.0 * static_cast<double>(number) / seconds_of_day);
  const double watts = 9000 + 4000 * day + 500 * std::sin(0.37 * static_cast<double>(number));
  const std::string power =
      watts < 10000 ? format_pattern(watts / 1000, "0.000KW") : format_pattern(watts / 1000, "0.00KW");
  const std::string voltage = format_pattern(230 + day, "##0.0V");
  PowerTexts texts;
  texts.fill(power);
  for (std::size_t quantity = 0; quantity < 6; ++quantity) texts[quantity] = voltage;
  return power_record(Wiring::w3p4w, "11-22-2026", clock_text(2 * number), texts).text;
}

int write_file(long records, const char* path, long lost) {
  std::ofstream file(path, std::ios::binary);
  file << header_lines(power_settings_line(Wiring::w3p4w, {"50", "15", "2", "1", "1"}),
                       power_column_line(Wiring::w3p4w));
  const long between = lost > 0 ? records / (lost + 1) : records;
  for (long number = 0; number < records; ++number) {
    const bool is_lost = number > 0 && number % between == 0 && number / between <= lost;
    file << (is_lost ? no_communication_line({2026, 11, 22}, clock_text(2 * number)) : record_at(number))
         << line_end;
  }
  return file.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace halden

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  return halden::write_file(std::atol(argv[1]), argv[2], argc > 3 ? std::atol(argv[3]) : 0);
}
