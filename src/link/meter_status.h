// The meter's status, and how the status reply is read into it.
//
// The reply to "?" is text: an optional prefix ending in "E", then 35 fields, each followed by one blank:
//
//   E00001 00000 00003 00001 00000 00001 00001 00002 ... 00026 00011 00022 00009 00030 00000 00000
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "readings/raw_values.h"

namespace halden {

inline constexpr std::int16_t harmonics_mode = 0;
inline constexpr std::int16_t power_mode = 1;

// The scaling (ct_ratio, pt_ratio, current_scale, current_range, wiring_system, md_period), and all other
// values of the status.
struct MeterStatus : Scaling {
  std::int16_t meter_mode = power_mode;
  std::int16_t harmonic_channel = 0;  // V1, I1, V2, I2, V3, I3
  std::int16_t frequency_code = 0;    // 1 50 Hz, 2 60 Hz, other automatic
  std::int16_t sample_seconds = 0;
  std::int16_t harmonic_order = 0;
  std::int32_t meter_flags_27 = 0;  // clamp type in bits 9-10

  // How the selected stored file of the datalogger was recorded.
  std::int16_t logger_data_type = 0;
  std::int16_t logger_channel = 0;
  std::int16_t logger_system = 0;
  std::int16_t logger_frequency_code = 0;
  std::int16_t logger_current_range = 0;
  std::int16_t logger_pt_ratio = 0;
  std::int16_t logger_ct_ratio = 0;
  std::int16_t logger_sample_seconds = 0;
  std::int16_t logger_clamp_flags = 0;  // clamp type in bits 14-15
  double logger_file_index = 0;
  std::string logger_file_index_text;
  std::int16_t logger_file_count = 0;

  // The meter's clock: four digits for the year, two for the others.
  std::string meter_year, meter_month, meter_day, meter_hour, meter_minute, meter_second;
};

// How many fields were read from a status reply; those after them are unchanged.
struct StatusReply {
  int fields = 0;
  // Every field about the selected stored file has the five digits in which the meter sends it: a lost byte
  // would give it the settings or the start of another file.
  bool stored_file_is_whole = false;
};

// Drops everything up to the first "E", then leading blanks and an echo of the request, and reads the fields
// in order into `status`. A value too wide for its destination leaves it unchanged, except bit patterns,
// which keep their low bits; letters where digits belong give 0. Nothing, and `status` untouched, when fewer
// than 161 characters remain, or when less than two thirds of the 35 fields are there as numbers: that is
// noise.
std::optional<StatusReply> read_status_reply(std::string_view reply, MeterStatus& status);

// The clamp factor of status field 27: bits 9-10 binary 01 give 3.0, 11 give 1.2, otherwise 1.0.
float clamp_factor(std::int32_t meter_flags_27);

}  // namespace halden
