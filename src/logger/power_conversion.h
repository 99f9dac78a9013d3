// From the words of a stored power file to the lines of a power data file. A record is worked out like a live
// reading, by a chain of its own: nothing that is shown live changes, and the same stored file always gives
// the same lines. It has one group of five words per phase:
//
//   0         voltage                  0.1 V
//   1         current                  0.1 mA x 10^range
//   2         active power             0.1 W x 10^range
//   3, 4      angles of both           tenths of a degree
//
// The lines:
//
//   3P4W,Hz=Auto,MD=15,SEC=2,CT=1,VT=1,INPUT=V1
//         DATE,      TIME,       V12,       V23, ...     VA(MD)
//   2024-03-15,  12:30:44,    400.1V,    399.8V, ...     ------,
//
// It differs from live readings in two points:
//   - Where the active power is larger than the apparent power, by magnitude, the apparent power takes its
//     place for all that follows from it. The field of the active power itself shows what was stored.
//   - Values have no 32-bit limit, so that no field ever repeats the text of an earlier record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/power_file.h"
#include "formats/record_field.h"
#include "logger/meter_time.h"
#include "logger/recorded_settings.h"
#include "readings/power_chain.h"

namespace halden {

class PowerConversion {
 public:
  explicit PowerConversion(const RecordedSettings& recorded);
  PowerConversion(const PowerConversion&) = delete;
  PowerConversion& operator=(const PowerConversion&) = delete;

  // Settings and columns, each with its line end.
  std::string header() const;

  // The line of the column names without its line end; empty for an unknown wiring system.
  std::string logger_write_header() const;

  // False when the recorded start is no date and time: all lines then have blank dates and times.
  bool start_is_valid() const { return clock_.is_set(); }

  // The line of the record that this word completes; nothing for the words before it, and nothing ever for an
  // unknown wiring system.
  std::optional<RecordLine> take(std::int16_t word);

  // Bytes were lost when the words end inside a record.
  bool is_inside_record() const { return words_taken_ > 0 || phases_taken_ > 0; }

  // After the last word: the line of a final record that was cut short, nothing when it was whole or has no
  // whole group. It has date, time and the fields of the phases that arrived. What needs all phases, the line
  // voltages with it, is blank.
  std::optional<RecordLine> finish();

 private:
  PhaseGroup group() const;
  void keep_phase(const PhaseTexts& texts);
  void keep_system();
  RecordLine end_record();
  std::string_view& text(PowerQuantity quantity) { return texts_[static_cast<std::size_t>(quantity)]; }

  RecordedSettings recorded_;
  PowerChain chain_;
  RecordClock clock_;
  PowerTexts texts_;              // of the record that is being taken; the chain keeps them
  std::size_t phases_taken_ = 0;  // of it
  std::array<std::int16_t, 5> group_{};
  std::size_t words_taken_ = 0;  // of the group
};

}  // namespace halden
