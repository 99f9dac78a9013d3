// The rows of a waveform file: the values of the input as they are shown, and the 1024 samples in its unit,
// scaled so that the largest one is the shown peak.
#pragma once

#include <string_view>
#include <vector>

#include "filetools/export/wave_columns.h"
#include "formats/wave_reader.h"

namespace halden {

class WaveformExport : public ExportedKind {
 public:
  // The file itself does not hold the meter's range and clamp.
  explicit WaveformExport(const ExportOptions& options)
      : current_range_(options.current_range), current_scale_(options.current_scale) {}

  LineMeaning take(std::string_view line) override;
  void note_columns() override { columns_.note(unit()); }
  std::vector<ValueColumn> columns() override;
  std::string_view date_in(std::string_view) const override { return line_.date; }
  std::string_view time_in(std::string_view) const override { return line_.time; }
  void add_values(std::string_view line, ValueRow& row) override;
  bool scales_currents() const override { return columns_.has(InputUnit::ampere); }

 private:
  InputUnit unit() const { return is_current(line_.fields.channel) ? InputUnit::ampere : InputUnit::volt; }
  WaveTexts texts() const;
  void add_samples(const WaveTexts& texts, ValueRow& row) const;

  const std::int16_t current_range_;
  const float current_scale_;
  WaveSettings settings_;
  WaveformLine line_;  // the one taken last
  WaveColumns columns_;
};

}  // namespace halden
