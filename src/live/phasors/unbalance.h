// How far a three-phase supply is from balance: the largest deviation from the mean, and the zero- and
// negative-sequence components as ratios of the positive-sequence one (symmetrical components after
// Fortescue).
#pragma once

#include "live/phasors/phasors.h"
#include "readings/power_chain.h"
#include "screen/window.h"

namespace halden {

// Shows the unbalance of voltages and currents on the six panels of the main window, in percent; "OL %" from
// 100 % on, where there is nothing to divide by, and while a value is over range. The sums of the phasors,
// which are the voltage against and the current in the neutral, go to the phasor window.
void calculate_unbalance(const PowerReadings& raw, const PhasorAngles& angles, const Scaling& scaling,
                         Window& meter_rec, Window& phasor_form);

}  // namespace halden
