#include "filetools/export/exported_kind.h"

#include "filetools/export/power_export.h"
#include "formats/power_reader.h"
#include "formats/record_field.h"

namespace halden {

std::unique_ptr<ExportedKind> exported_kind(std::string_view first_line) {
  if (read_power_settings(first_line).wiring) return std::make_unique<PowerExport>();
  return nullptr;
}

LineMeaning meaning_of_other(std::string_view line) {
  return is_no_communication_line(line) ? LineMeaning::no_communication : LineMeaning::no_record;
}

}  // namespace halden
