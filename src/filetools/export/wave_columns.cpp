#include "filetools/export/wave_columns.h"

namespace halden {

std::string unit_name(InputUnit unit) { return unit == InputUnit::volt ? "V" : "A"; }

void WaveColumns::add_to(std::vector<ValueColumn>& columns) const {
  columns.push_back({"input", ""});
  for (const InputUnit unit : input_units)
    if (has(unit))
      for (const char* quantity : {"RMS", "PEAK_P", "PEAK_N", "VI_1"})
        columns.push_back({quantity, unit_name(unit)});
  columns.push_back({"THD_F", "percent"});
  columns.push_back({"HZ", "Hz"});
}

void WaveColumns::add_values(const WaveSummaryTexts& texts, InputUnit unit, ValueRow& row) const {
  const std::array of_input = {texts.rms, texts.peak_plus, texts.peak_minus, texts.fundamental};
  row.add_text(texts.input);
  for (const InputUnit column_unit : input_units) {
    if (!has(column_unit)) continue;
    if (column_unit != unit) row.add_nothing(of_input.size());
    if (column_unit != unit) continue;
    for (const std::string_view text : of_input) row.add_field(text);
  }
  row.add_field(texts.thd);
  row.add_field(texts.hz);
}

LineMeaning take_wave_line(std::string_view line, WaveLineKind kind, WaveSettings& settings) {
  if (kind == WaveLineKind::record) return LineMeaning::record;
  if (kind == WaveLineKind::lost_link) return LineMeaning::lost_link;
  if (kind != WaveLineKind::header) return LineMeaning::no_record;
  WaveSettings read = read_wave_settings(line);
  if (!read.kind) return LineMeaning::column_names;
  settings = std::move(read);
  return LineMeaning::settings;
}

}  // namespace halden
