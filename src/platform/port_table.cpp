#include "platform/port_table.h"

#include <charconv>

namespace halden {

namespace {

bool in_range(int number) { return number >= first_port_number && number <= last_port_number; }

}  // namespace

PortTable::PortTable() {
  for (int number = first_port_number; number <= last_port_number; ++number)
    devices_[static_cast<std::size_t>(number)] = default_device(number);
}

std::string PortTable::device(int number) const {
  return in_range(number) ? devices_[static_cast<std::size_t>(number)] : std::string();
}

void PortTable::override_device(int number, std::string device) {
  if (in_range(number)) devices_[static_cast<std::size_t>(number)] = std::move(device);
}

std::optional<std::pair<int, std::string>> parse_port_override(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto rest = text.substr(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !in_range(number) || rest.size() < 2 || rest.front() != '=')
    return std::nullopt;
  return std::pair(number, std::string(rest.substr(1)));
}

}  // namespace halden
