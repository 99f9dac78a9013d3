// From the raw groups of the phases to all texts of a power reading: the chain that live frames and stored
// records share.
//
//   PhaseGroup of a phase  ->  take_phase   ->  texts of V, I, W, VA, VAR, PF and the phase angle
//   all phases taken       ->  take_system  ->  texts of the system's W, VAR, VA and PF, and of V12, V23, V31
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "readings/raw_values.h"
#include "readings/readings.h"

namespace halden {

enum class PhaseQuantity { V, I, W, VA, VAR, PF, Phase };

inline constexpr std::array phase_quantities = {PhaseQuantity::V,    PhaseQuantity::I,   PhaseQuantity::W,
                                                PhaseQuantity::VA,   PhaseQuantity::VAR, PhaseQuantity::PF,
                                                PhaseQuantity::Phase};

// One phase as the meter sent it: V in 0.1 V; I and W in 0.1 mA and 0.1 W times ten to the current range; the
// angles of voltage and current in tenths of a degree. Values that depend on a missing field stay unchanged.
struct PhaseGroup {
  std::optional<double> v, i, w, v_angle, i_angle;
};

// The active power a phase goes on with when its magnitude exceeds that of its apparent power: the one sent,
// as live readings show it, or the apparent one, with which no reactive power is left.
enum class ActivePower { as_sent, at_most_apparent };

// The raw readings of the last groups. Voltage, current and angles are as the meter sent them, over range at
// -1; the powers have no value while they are over range.
struct PowerReadings {
  PerPhase<double> v_raw{};
  PerPhase<double> i_raw{};
  PerPhase<DerivedRaw> w_raw{0, 0, 0};
  PerPhase<DerivedRaw> va_raw{0, 0, 0};
  PerPhase<DerivedRaw> var_raw{0, 0, 0};
  PerPhase<double> v_angle{};
  PerPhase<std::int32_t> i_angle{};
  PerPhase<std::optional<std::int32_t>> line_raw{0, 0, 0};  // v12_raw, v23_raw, v31_raw
};

// The texts of one phase, which the chain keeps until its next group; nothing for a quantity whose field was
// missing.
class PhaseTexts {
 public:
  std::optional<std::string_view>& operator[](PhaseQuantity quantity) { return texts_[index(quantity)]; }
  std::optional<std::string_view> operator[](PhaseQuantity quantity) const { return texts_[index(quantity)]; }

 private:
  static std::size_t index(PhaseQuantity quantity) { return static_cast<std::size_t>(quantity); }

  std::array<std::optional<std::string_view>, phase_quantities.size()> texts_;
};

// The chain keeps them until it is asked for the next ones.
struct SystemTexts {
  std::string_view w, var, va, pf;
  std::optional<PerPhase<std::string_view>> lines;  // V12, V23, V31 of a three-phase system
};

class PowerChain {
 public:
  // `scaling` outlives the chain; its wiring system decides which phases count.
  explicit PowerChain(const Scaling& scaling, ActivePower active_power = ActivePower::as_sent)
      : readings(scaling),
        scaling_(scaling),
        active_power_(active_power),
        phases_{Readings(scaling), Readings(scaling), Readings(scaling)},
        lines_{phases_} {}
  explicit PowerChain(Scaling&&, ActivePower = ActivePower::as_sent) = delete;

  // `phase` is 0, 1 or 2.
  PhaseTexts take_phase(std::size_t phase, const PhaseGroup& group);

  // From the groups taken last.
  SystemTexts take_system();

  PowerReadings raw;
  Readings readings;  // of the system; its energies and demands are advanced by the user of the chain

 private:
  void take_powers(std::size_t phase, const PhaseGroup& group, PhaseTexts& texts);
  void limit_active_power(std::size_t phase);
  void take_angles(std::size_t phase, const PhaseGroup& group, PhaseTexts& texts);

  const Scaling& scaling_;
  ActivePower active_power_;
  PerPhase<Readings> phases_;  // each keeps its own last text when a product does not fit
  PerPhase<Readings> lines_;
};

}  // namespace halden
