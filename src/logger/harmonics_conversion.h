// From the words of a stored harmonics file to the lines of a harmonics data file. A record is 64 words:
//
//   0         RMS                     0.1 V, or 0.1 mA x 10^range
//   1, 2      peaks, both magnitudes  as word 0
//   3 to 53   orders 0 to 50          hundredths of a percent
//   54        THD-F                   tenths of a percent
//   55        frequency               tenths of a hertz
//   58        range of the orders     1 to 50 or 51 to 100
//
// The others are not used. The fundamental is not stored; it follows from RMS and THD-F.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/record_field.h"
#include "link/meter_status.h"

namespace halden {

inline constexpr std::size_t harmonics_record_words = 64;

using HarmonicsWords = std::array<std::int16_t, harmonics_record_words>;

// The messages in which this download differs from the one of power data.
inline constexpr std::string_view not_harmonics_message =
    "Data stored is not harmonic data, please press the i button to check";
inline constexpr std::string_view harmonics_error_message = "Program error, please restart program again.";

class HarmonicsConversion {
 public:
  // Takes how the selected file was recorded. The status itself is not needed afterwards, so a query in
  // between changes nothing; neither does the conversion change the status.
  explicit HarmonicsConversion(const MeterStatus& status);

  // Settings and columns, each with its line end. A wiring system that does not exist is "????"; no column
  // depends on it.
  std::string header() const;

  // The line of the record that this word completes; nothing for the words before it. `date` and `time` are
  // those of the record.
  std::optional<RecordLine> add_word(std::int16_t word, std::string_view date, std::string_view time);

  // The lines so far.
  std::size_t records() const { return records_; }

  // Bytes were lost when the words end inside a record. Such a record has no line: its frequency, distortion
  // and range stand in its last words.
  bool is_inside_record() const { return words_ > 0; }

  // "2 records converted"
  std::string count_text() const;

 private:
  RecordLine record_line(std::string_view date, std::string_view time) const;
  std::string scaled_text(std::size_t position) const;
  std::string fundamental_text() const;
  std::string value_text(double raw) const;

  Scaling scaling_;
  std::int16_t channel_ = 0;
  std::int16_t frequency_code_ = 0;
  std::int16_t sample_seconds_ = 0;
  HarmonicsWords record_{};
  std::size_t words_ = 0;  // of the record that is arriving
  std::size_t records_ = 0;
};

}  // namespace halden
