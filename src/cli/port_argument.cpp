#include "cli/port_argument.h"

#include <charconv>
#include <system_error>

namespace halden {

namespace {

#ifdef _WIN32
constexpr std::string_view device_prefix = "COM";
#else
constexpr std::string_view device_prefix;  // every device is a path
#endif

std::optional<int> whole_number(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool is_device(std::string_view text) {
  if (text.find('/') != std::string_view::npos) return true;
  return !device_prefix.empty() && text.substr(0, device_prefix.size()) == device_prefix &&
         whole_number(text.substr(device_prefix.size())).has_value();
}

}  // namespace

std::optional<PortArgument> parse_port_argument(std::string_view text) {
  if (text == "demo") return PortArgument{true, first_port_number, {}};
  if (is_device(text)) return PortArgument{false, first_port_number, std::string(text)};
  const int number = whole_number(text).value_or(0);
  if (number < first_port_number || number > last_port_number) return std::nullopt;
  return PortArgument{false, number, {}};
}

}  // namespace halden
