// From a raw value through the transformer ratios and the clamp factor to a text, for every member of
// Readings.
//
// The products of the meter's chain are 32-bit: one that does not fit (each partial product counts) gives no
// text, and the member that asked keeps what it showed. Real sums have no such limit.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>

#include "readings/prefix_text.h"
#include "readings/raw_values.h"

namespace halden {

inline constexpr UnitTable current_units = {"mA", "A", "KA", "MA", "GA"};
inline constexpr UnitTable voltage_units = {"V", "KV", "MV", "GV", "TV"};
inline constexpr UnitTable w_units = {"W", "KW", "MW", "GW", "TW"};
inline constexpr UnitTable va_units = {"VA", "KVA", "MVA", "GVA", "TVA"};
inline constexpr UnitTable var_units = {"VAR", "KVAR", "MVAR", "GVAR", "TVAR"};
inline constexpr UnitTable wh_units = {"WH", "KWH", "MWH", "GWH", "TWH"};
inline constexpr UnitTable vah_units = {"VAH", "KVAH", "MVAH", "GVAH", "TVAH"};
inline constexpr UnitTable varh_units = {"VARH", "KVARH", "MVARH", "GVARH", "TVARH"};

// The product of all factors; nothing once a partial product leaves the 32-bit range.
std::optional<double> product_32bit(double value, std::initializer_list<double> factors);

// Raw values in 0.1 mA x 10^range, 0.1 V, and 0.1 W (VA, VAR) x 10^range. Nothing on a 32-bit overflow.
std::optional<std::string> current_text_of(const Scaling& scaling, double raw);
std::optional<std::string> voltage_text_of(const Scaling& scaling, double raw);
std::optional<std::string> power_text_of(const Scaling& scaling, double raw, Division division,
                                         const UnitTable& units);

// Powers of the system, energies and demands: `raw` in 0.1 W (Wh, VA, ...) x 10^range, without a limit.
std::string real_power_text_of(const Scaling& scaling, double raw, const UnitTable& units);

}  // namespace halden
