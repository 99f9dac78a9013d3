// Turns a stored recording of power data, group by group, into the lines of a power data file. A record is
// worked out like a live reading, by a chain of its own: nothing that is shown live changes, and the same
// stored file always gives the same lines.
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

#include "formats/power_file.h"
#include "formats/record_field.h"
#include "logger/record_clock.h"
#include "readings/power_chain.h"
#include "readings/raw_values.h"

namespace halden {

// How the meter was set while it recorded.
struct RecordedSettings {
  Scaling scaling;                  // a ratio of 0 counts as 1
  std::int16_t interval_s = 0;      // a negative one counts as 0: no time passes, no demand period ends
  std::int16_t frequency_code = 0;  // 1 50 Hz, 2 60 Hz, any other automatic
  std::int16_t channel = 0;         // V1, I1, V2, I2, V3, I3; any other has no name
  std::string start_date;           // "2024-03-15"
  std::string start_time;           // "12:30:44"
};

// One phase of a record: voltage, current, active power, angle of the voltage, angle of the current, scaled
// like a PhaseGroup.
using StoredGroup = std::array<std::int16_t, 5>;

class PowerConversion {
 public:
  explicit PowerConversion(const RecordedSettings& recorded);
  PowerConversion(const PowerConversion&) = delete;
  PowerConversion& operator=(const PowerConversion&) = delete;

  // Lines come without their line end. The column line of an unknown wiring system is empty.
  std::string settings_line() const;
  std::string column_line() const;

  // False when the recorded start is no date and time: all lines then have blank dates and times.
  bool start_is_valid() const { return clock_.is_set(); }

  // The groups of a record in the order of the phases. The line of the record with its last group; nothing
  // before that, and nothing ever for an unknown wiring system.
  std::optional<RecordLine> take(const StoredGroup& group);

  // After the last group: the line of a final record that was cut short, nothing when it was whole. It has
  // date, time and the fields of the phases that arrived. What needs all phases, the line voltages with it,
  // is blank.
  std::optional<RecordLine> finish();

  // The lines so far, also that of a record cut short.
  std::size_t records() const { return records_; }

 private:
  void keep_phase(const PhaseTexts& texts);
  void keep_system();
  RecordLine end_record();
  std::string& text(PowerQuantity quantity) { return texts_[static_cast<std::size_t>(quantity)]; }

  RecordedSettings recorded_;
  PowerChain chain_;
  RecordClock clock_;
  std::array<std::string, power_quantity_count> texts_;  // of the record that is being taken
  std::size_t phases_taken_ = 0;                         // of it
  std::size_t records_ = 0;
};

}  // namespace halden
