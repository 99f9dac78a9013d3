// The values that the meter sends with a spectrum or a waveform, as the texts that are shown and recorded.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "readings/raw_values.h"

namespace halden {

// As received. Raw units: voltage 0.1 V, current 0.1 mA x 10^range.
struct WaveFields {
  int channel = 0;  // V1, I1, V2, I2, V3, I3
  double rms = 0;
  double peak_plus = 0;
  double peak_minus = 0;  // magnitude
  int frequency_code = 0;
  double thd_tenths = 0;  // tenths of a percent of the fundamental
  double fundamental = 0;
};

struct WaveTexts {
  std::string rms;           // "230.1V"
  std::string peak_plus;     // "325.4V"
  std::string peak_minus;    // "-325.4V"
  std::string crest_factor;  // "1.41", "OL" without an RMS value or a peak
  std::string thd;           // "3.2%"
  std::string fundamental;
  std::string hz;  // "50Hz", "60Hz", "AUTO"
};

// "V1"; empty for a channel that does not exist.
std::string_view input_name(int channel);

// The channel of that name.
std::optional<int> channel_of(std::string_view input_name);

// The phase that a channel is measured at, 0 to 2. One that does not exist counts as the nearest.
std::size_t phase_of_input(int channel);

// A channel other than V1, V2 and V3 counts as a current.
bool is_current(int channel);

// A text whose value does not fit its scaling stays as it was.
void update_wave_texts(const Scaling& scaling, const WaveFields& fields, WaveTexts& texts);

// Peak over RMS, with the prefixes of their units: "1.270A" over "900.0mA" is "1.41".
std::string crest_factor_text(std::string_view peak, std::string_view rms);

// The unit behind the number of a text: "V" of "-325.4V".
std::string_view unit_of(std::string_view text);

bool is_overload(std::string_view text);

}  // namespace halden
