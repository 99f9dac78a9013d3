// What the harmonics view shows of a spectrum. The menu entries set it when they open the view, the switches
// beside the chart at any time.
#pragma once

#include <cstdint>

#include "screen/window.h"

namespace halden {

inline constexpr std::int16_t fifty_orders = 51;  // the highest order offered after "50 Orders"
inline constexpr std::int16_t all_orders = 99;

struct HarmonicsOptions {
  std::int16_t harmonic_count = all_orders;  // highest order offered: 51 or 99
  std::int16_t harmonic_option = 0;          // 0 percentages, 1 phase angles
  bool without_largest = false;              // the order of 100 % is left out of the chart
};

// Marks the switches that apply, and lets the order cursor reach from 1 to harmonic_count. It stands at
// `order`, or at the highest order offered.
void show_options(const HarmonicsOptions& options, int order, Window& meter_rec);

}  // namespace halden
