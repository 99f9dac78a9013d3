#include "cli/record.h"

#include <nlohmann/json.hpp>

namespace halden {

namespace {

std::string as_json(const Record& value) {
  constexpr int one_line = -1;
  return value.dump(one_line, ' ', false, Record::error_handler_t::replace);
}

}  // namespace

std::string formatted(const Record& record, Format format) {
  if (format == Format::json) return as_json(record) + "\n";
  std::string text;
  for (const auto& [name, value] : record.items())
    text += name + "=" + (value.is_string() ? value.get<std::string>() : as_json(value)) + "\n";
  return text;
}

}  // namespace halden
