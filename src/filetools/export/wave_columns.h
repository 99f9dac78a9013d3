// The columns that harmonics and waveform files have in common: the input, and the values that the meter
// sends with each spectrum or waveform. Those of a voltage and of a current have columns of their own,
// because a recording may be continued with another input.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "filetools/export/exported_kind.h"
#include "formats/wave_reader.h"

namespace halden {

enum class InputUnit { volt, ampere };
inline constexpr std::array input_units = {InputUnit::volt, InputUnit::ampere};

// "V", "A"
std::string unit_name(InputUnit unit);

// The texts of a record.
struct WaveSummaryTexts {
  std::string_view input, rms, peak_plus, peak_minus, fundamental, thd, hz;
};

class WaveColumns {
 public:
  void note(InputUnit unit) { has_[static_cast<std::size_t>(unit)] = true; }
  bool has(InputUnit unit) const { return has_[static_cast<std::size_t>(unit)]; }

  void add_to(std::vector<ValueColumn>& columns) const;
  void add_values(const WaveSummaryTexts& texts, InputUnit unit, ValueRow& row) const;

 private:
  std::array<bool, 2> has_{};
};

// What a line is; a settings line becomes the settings of the records behind it.
LineMeaning take_wave_line(std::string_view line, WaveLineKind kind, WaveSettings& settings);

}  // namespace halden
