#include "filetools/export/waveform_export.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "formats/field_reading.h"
#include "readings/numbers.h"

namespace halden {

namespace {

// A sample has two digits more than the peak that scales it.
constexpr int more_digits = 2;
constexpr std::int64_t parts_of_count = 100;

// Half away from zero.
std::int64_t rounded_quotient(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t half = std::abs(divisor) / 2;
  return (dividend + (dividend < 0 ? -half : half)) / divisor;
}

}  // namespace

LineMeaning WaveformExport::take(std::string_view line) {
  line_ = read_waveform_line(line);
  return take_wave_line(line, line_.kind, settings_);
}

std::vector<ValueColumn> WaveformExport::columns() {
  std::vector<ValueColumn> columns;
  columns_.add_to(columns);
  for (const InputUnit unit : input_units)
    for (std::size_t sample = 0; columns_.has(unit) && sample < waveform_samples; ++sample)
      columns.push_back({"S" + std::to_string(sample), unit_name(unit)});
  return columns;
}

WaveTexts WaveformExport::texts() const {
  Scaling scaling;
  scaling.ct_ratio = ratio_of(settings_.ct);
  scaling.pt_ratio = ratio_of(settings_.vt);
  scaling.current_range = current_range_;
  scaling.current_scale = current_scale_;
  scaling.product_limit = ProductLimit::none;
  WaveTexts texts;
  update_wave_texts(scaling, line_.fields, texts);
  return texts;
}

// A line that was half written in the first pass may have an input that has no columns.
void WaveformExport::add_values(std::string_view, ValueRow& row) {
  if (!columns_.has(unit())) return;
  const WaveTexts shown = texts();
  columns_.add_values({input_name(line_.fields.channel), shown.rms, shown.peak_plus, shown.peak_minus,
                       shown.fundamental, shown.thd, shown.hz},
                      unit(), row);
  if (unit() == InputUnit::ampere && columns_.has(InputUnit::volt)) row.add_nothing(waveform_samples);
  add_samples(shown, row);
}

// The peak of the side that is further from 0 scales them. Without it they have no unit.
void WaveformExport::add_samples(const WaveTexts& shown, ValueRow& row) const {
  const auto [lowest, highest] = std::ranges::minmax(line_.samples);
  const bool by_plus = highest > -lowest;
  const std::int64_t divisor = by_plus ? highest : lowest;
  const std::optional<FieldReading> peak = read_field(by_plus ? shown.peak_plus : shown.peak_minus);
  if (!peak) return;
  for (const std::int64_t sample : line_.samples)
    row.add_number(divisor == 0 ? 0 : rounded_quotient(sample * peak->counts * parts_of_count, divisor),
                   peak->exponent - more_digits);
}

}  // namespace halden
