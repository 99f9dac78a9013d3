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
#include "logger/meter_time.h"
#include "logger/recorded_settings.h"

namespace halden {

class HarmonicsConversion {
 public:
  explicit HarmonicsConversion(const RecordedSettings& recorded);

  // Settings and columns, each with its line end. A wiring system that does not exist is "????"; no column
  // depends on it.
  std::string header() const;

  // False when the recorded start is no date and time: all lines then have blank dates and times.
  bool start_is_valid() const { return clock_.is_set(); }

  // The line of the record that this word completes; nothing for the words before it.
  std::optional<RecordLine> take(std::int16_t word);

  // Bytes were lost when the words end inside a record.
  bool is_inside_record() const { return words_taken_ > 0; }

  // After the last word. A record that was cut short has no line: its frequency, distortion and range stand
  // in its last words.
  std::optional<RecordLine> finish();

 private:
  RecordLine record_line() const;
  std::string scaled_text(std::size_t position) const;
  std::string fundamental_text() const;
  std::string value_text(double raw) const;

  RecordedSettings recorded_;
  RecordClock clock_;
  std::array<std::int16_t, 64> record_{};
  std::size_t words_taken_ = 0;  // of the record
};

}  // namespace halden
