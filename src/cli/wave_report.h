// What `haldenctl live` prints of a harmonics or waveform frame.
#pragma once

#include <string>
#include <vector>

#include "cli/command.h"
#include "live/spectrum/spectrum_view.h"
#include "live/waveform/waveform_view.h"
#include "screen/window.h"

namespace halden {

// "time", "input", the texts of the summary under the names of their panels, "hz", and two arrays of numbers
// for the orders 0 to 99, with one decimal: "harmonic_percent", and "harmonic_angle" in degrees.
Record spectrum_record(const SpectrumView& view, const Window& meter_rec, const std::string& time);

// The same head, then "unit" and "samples": 1024 numbers in that unit, with the decimals of the peaks. Over
// range there are none, and no unit.
Record samples_record(const WaveformView& view, const Window& meter_rec, const std::string& time);

enum class OrderTables { percent, percent_and_angle };

// The same as lines without line ends, ten orders side by side:
//
//   2026-11-22T12:30:44.250  V1  50Hz
//
//   RMS             230.1V   PEAK+           325.4V   PEAK-          -325.4V
//   C.F.              1.41   THD-F             3.2%   VI(1)           230.0V
//
//   %            0      1      2      3      4      5      6      7      8      9
//    0         0.0  100.0    0.0    2.3    0.0    1.1    0.0    0.0    0.0    0.0
std::vector<std::string> spectrum_table(const SpectrumView& view, const Window& meter_rec,
                                        const std::string& time, OrderTables tables);

}  // namespace halden
