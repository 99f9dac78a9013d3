// The work done once per sampling instant: energies and demands, advanced from the last system values.
#pragma once

#include "readings/readings.h"
#include "screen/window.h"

namespace halden {

// Advances energy and demand by one sampling instant of `sample_time_s` seconds and shows them.
void advance_energy_and_demand(Readings& readings, double sample_time_s, Window& meter_rec);

// Clears what the program accumulates, and the panels that show it.
void reset_energy_and_demand(Readings& readings, Window& meter_rec);

}  // namespace halden
