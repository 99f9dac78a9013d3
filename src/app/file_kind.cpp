#include "app/file_kind.h"

#include "filetools/hardcopy/hardcopy_file.h"
#include "formats/power_reader.h"

namespace halden {

namespace {

constexpr std::size_t longest_first_line = 4096;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

}  // namespace

std::string_view kind_name(FileKind kind) {
  constexpr std::array<std::string_view, file_kinds.size()> names = {"power", "harmonics", "waveform",
                                                                     "hardcopy", "text"};
  return names[static_cast<std::size_t>(kind)];
}

FileKind kind_of_file(Files& files, const std::string& path) {
  const std::string start = files.read(path, 0, longest_first_line).bytes;
  std::string_view line = start;
  if (line.starts_with(byte_order_mark)) line.remove_prefix(byte_order_mark.size());
  line = line.substr(0, line.find_first_of("\r\n"));
  if (read_power_settings(line).wiring) return FileKind::power;
  if (line.starts_with("HARMO")) return FileKind::harmonics;
  if (line.starts_with("WAVE")) return FileKind::waveform;
  return is_date_line(line) ? FileKind::hardcopy : FileKind::text;
}

}  // namespace halden
