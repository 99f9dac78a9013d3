// The records of the harmonics and waveform data files. Their header lines are in file_headers.h.
//
//   harmonics   03-15-2024,  12:30:44,    230.1V,    325.4V,   -325.4V,      3.2%, ...  109 fields of eleven
//               characters: date, time, RMS, peaks, THD-F, fundamental, frequency, range, orders 0 to 99
//   waveform    03-15-2024   12:30:44 B 00012 -00045 ... O=    0R= 2301 ... V= 2300 E  the frame as received
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "formats/record_field.h"
#include "formats/waveform_tags.h"
#include "readings/harmonics.h"
#include "readings/wave_texts.h"

namespace halden {

inline constexpr std::size_t waveform_samples = 1024;

// `values` are the percentages or the angles of the orders.
RecordLine harmonics_record(std::string_view date, std::string_view time, const WaveTexts& texts,
                            const std::array<float, harmonic_orders>& values);

// `fields` are the received characters behind each of the waveform tags.
RecordLine waveform_record(std::string_view date, std::string_view time,
                           std::span<const std::int16_t> samples, std::span<const std::string> fields);

}  // namespace halden
