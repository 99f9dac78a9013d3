// The quantities of the power data file. A record holds the text of each, as it is shown.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace halden {

// In the order of the columns of 3P4W, which have them all.
// clang-format off
enum class PowerQuantity {
  V12, V23, V31, V1, V2, V3,
  I1, I2, I3, P1, P2, P3,
  S1, S2, S3, Q1, Q2, Q3,
  PF1, PF2, PF3, Phase1, Phase2, Phase3,
  W_SYS, VA_SYS, VAR_SYS, PF_SYS, WH_SYS, VAH_SYS, VARH_SYS, PFH_SYS,
  W_AD, VA_AD, W_MD, VA_MD
};
// clang-format on

inline constexpr std::size_t power_quantity_count = static_cast<std::size_t>(PowerQuantity::VA_MD) + 1;

// The text of every quantity, in their order. Those that the wiring system does not have are not read.
using PowerTexts = std::array<std::string_view, power_quantity_count>;

}  // namespace halden
