// The names of modes and wiring systems, as they are typed on the command line and the console of
// halden-meter.
#pragma once

#include <optional>
#include <string_view>

#include "simulator/meter_settings.h"

namespace halden::simulator {

std::optional<MeterMode> mode_of(std::string_view name);  // "harmonics", "power"
std::optional<Wiring> wiring_of(std::string_view name);   // "1P2W", "1P3W", "3P3W", "3P4W"

}  // namespace halden::simulator
