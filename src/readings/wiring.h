// The wiring systems the meter measures, and how many phases each uses.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace halden {

// As the meter counts them. A corrupt status reply may hold any other number, which is kept unchanged.
enum class Wiring : std::int16_t { w1p2w = 0, w1p3w = 1, w3p3w = 2, w3p4w = 3 };

inline constexpr std::size_t phase_count = 3;

template <typename Value>
using PerPhase = std::array<Value, phase_count>;

constexpr bool is_known(Wiring wiring) { return wiring >= Wiring::w1p2w && wiring <= Wiring::w3p4w; }

// Its place in a table of the four; that of 1P2W when it is unknown.
constexpr std::size_t table_index(Wiring wiring) {
  return is_known(wiring) ? static_cast<std::size_t>(wiring) : 0;
}

// Phases 1 to this number carry readings: 1P2W and unknown systems one, 1P3W two, the others three.
constexpr std::size_t phases_in_use(Wiring wiring) {
  constexpr std::array<std::size_t, 4> phases = {1, 2, 3, 3};
  return phases[table_index(wiring)];
}

constexpr bool is_three_phase(Wiring wiring) { return phases_in_use(wiring) == phase_count; }

}  // namespace halden
