#include "simulator/meter_settings.h"

#include <algorithm>

namespace halden::simulator {

namespace {

template <typename Value, std::size_t size>
std::optional<Value> named(const std::array<std::string_view, size>& names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<Value>(found - names.begin());
}

}  // namespace

std::optional<MeterMode> mode_of(std::string_view name) {
  constexpr std::array<std::string_view, 2> names = {"harmonics", "power"};
  return named<MeterMode>(names, name);
}

std::optional<Wiring> wiring_of(std::string_view name) {
  constexpr std::array<std::string_view, 4> names = {"1P2W", "1P3W", "3P3W", "3P4W"};
  return named<Wiring>(names, name);
}

}  // namespace halden::simulator
