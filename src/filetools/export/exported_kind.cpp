#include "filetools/export/exported_kind.h"

#include <optional>

#include "filetools/export/harmonics_export.h"
#include "filetools/export/power_export.h"
#include "filetools/export/transient_export.h"
#include "filetools/export/waveform_export.h"
#include "formats/power_reader.h"
#include "formats/record_field.h"
#include "formats/wave_reader.h"

namespace halden {

std::unique_ptr<ExportedKind> exported_kind(std::string_view first_line, const ExportOptions& options) {
  if (read_power_settings(first_line).wiring) return std::make_unique<PowerExport>();
  if (first_line.starts_with(transient_file_start)) return std::make_unique<TransientExport>();
  const std::optional<WaveFileKind> kind = read_wave_settings(first_line).kind;
  if (kind == WaveFileKind::harmonics) return std::make_unique<HarmonicsExport>();
  if (kind == WaveFileKind::waveform) return std::make_unique<WaveformExport>(options);
  return nullptr;
}

LineMeaning meaning_of_other(std::string_view line) {
  return is_no_communication_line(line) ? LineMeaning::lost_link : LineMeaning::no_record;
}

}  // namespace halden
