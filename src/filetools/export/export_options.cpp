#include "filetools/export/export_options.h"

#include <algorithm>
#include <string>

namespace halden {

std::optional<TableFormat> table_format(std::string_view path) {
  std::string ending(path.substr(std::min(path.rfind('.'), path.size())));
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (ending == ".csv") return TableFormat::csv;
  if (ending == ".json") return TableFormat::json;
  return std::nullopt;
}

}  // namespace halden
