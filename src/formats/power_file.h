// The columns of the power data file, by wiring system: their names as written in the file's second line, and
// the quantities whose texts a record stores.
//
//   3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1
//         DATE,      TIME,       V12,       V23, ...     VA(MD)
//   03-15-2024,  12:30:44,    400.1V,    399.8V, ...     ------,
//
// A record has one field of eleven characters per column and ends with a comma: 38 columns of 3P4W are 418
// characters, 20 of 3P3W 220, 28 of 1P3W 308, 17 of 1P2W 187.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/record_field.h"
#include "readings/wiring.h"

namespace halden {

// The quantities of a record, in the order of the columns of 3P4W, which have all of them.
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

// The shown text of every quantity, in that order. Those the wiring system does not have are not read.
using PowerTexts = std::array<std::string_view, power_quantity_count>;

// How many columns stand behind DATE and TIME.
constexpr std::size_t power_column_count(Wiring wiring_system) {
  constexpr std::array<std::size_t, 4> counts = {15, 26, 18, 36};
  return counts[table_index(wiring_system)];
}

// The column of a quantity, 0 for the first one behind DATE and TIME; nothing when the wiring system does not
// have it.
std::optional<std::size_t> power_column(Wiring wiring_system, PowerQuantity quantity);

// The line of the column names; empty for an unknown wiring system.
std::string power_column_line(Wiring wiring_system);

// One record without its line end. `date` is "03-15-2024" of a live record and "2024-03-15" of a stored one,
// `time` the sampling instant as it is shown ("12:30:44"). Empty for an unknown wiring system.
RecordLine power_record(Wiring wiring_system, std::string_view date, std::string_view time,
                        const PowerTexts& texts);

}  // namespace halden
