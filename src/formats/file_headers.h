// The header lines of the three kinds of data files: first how the meter was set, then the names of the
// columns. Lines come without their line end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "readings/wiring.h"

namespace halden {

inline constexpr int stored_order_count = 51;

// The meter's settings as they are shown.
struct SettingTexts {
  std::string_view hz, md, sec, ct, vt;
};

// What the header of a harmonics or waveform file says about its source.
struct WaveSource {
  Wiring wiring_system = Wiring::w1p2w;
  std::int16_t harmonic_channel = 0;  // V1, I1, V2, I2, V3, I3; any other has no name
  std::int16_t harmonic_option = 0;   // 0 percentages, anything else phase angles
};

// "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1"
std::string power_settings_line(Wiring wiring_system, const SettingTexts& settings);

// The same with ",INPUT=V1" at its end, in the file of a stored recording.
std::string stored_power_settings_line(Wiring wiring_system, const SettingTexts& settings, int channel);

// "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=%"; "OPTION=D" with phase angles.
std::string harmonics_settings_line(const WaveSource& source, const SettingTexts& settings);

// The same of a file converted from the meter's memory, whose records always have percentages of 51 orders:
// "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,NO.=51 ,OPTION=%".
std::string stored_harmonics_settings_line(const WaveSource& source, const SettingTexts& settings);

// The two header lines of a file, each with its line end.
std::string header_lines(std::string settings, const std::string& columns);

// Nine names and the orders 0 to 99; in a converted file 0 to 50.
std::string harmonics_column_line();
std::string stored_harmonics_column_line();

// "WAVE Hz=60 MD=15 SEC=2 CT=1 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%"
std::string waveform_settings_line(const WaveSource& source, const SettingTexts& settings);

// Date and time, the samples 0 to 1023, and the values the meter calculated from them.
std::string waveform_column_line();

}  // namespace halden
