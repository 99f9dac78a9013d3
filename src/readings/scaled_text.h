// From a raw value through the transformer ratios and the clamp factor to a text, for every member of
// Readings: four significant digits with an engineering prefix ("123.4mA", "1.234KV", "-12.34MW").
//
// The products of one phase have 32 bits unless the scaling has no limit: when one does not fit (each partial
// product counts) there is no text, and the calling member keeps its old one. System powers, energies and
// demands never have a limit.
#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "readings/raw_values.h"

namespace halden {

// How a value with too many digits is divided by ten: currents, voltages and phase watts drop the digit; all
// others keep it as a fraction, which rounds the digits shown.
enum class Division { integer, real };

// The units of exponent 0, 1 to 3, 4 to 6, 7 to 9, and 10 and more.
using UnitTable = std::array<std::string_view, 5>;

inline constexpr UnitTable current_units = {"mA", "A", "KA", "MA", "GA"};
inline constexpr UnitTable voltage_units = {"V", "KV", "MV", "GV", "TV"};
inline constexpr UnitTable w_units = {"W", "KW", "MW", "GW", "TW"};
inline constexpr UnitTable va_units = {"VA", "KVA", "MVA", "GVA", "TVA"};
inline constexpr UnitTable var_units = {"VAR", "KVAR", "MVAR", "GVAR", "TVAR"};
inline constexpr UnitTable wh_units = {"WH", "KWH", "MWH", "GWH", "TWH"};
inline constexpr UnitTable vah_units = {"VAH", "KVAH", "MVAH", "GVAH", "TVAH"};
inline constexpr UnitTable varh_units = {"VARH", "KVARH", "MVARH", "GVARH", "TVARH"};

// The product of all factors; nothing once a partial product leaves the range that the limit allows.
std::optional<double> limited_product(ProductLimit limit, double value,
                                      std::initializer_list<double> factors);

// Raw values in 0.1 mA x 10^range, 0.1 V, and 0.1 W (VA, VAR) x 10^range. Nothing beyond the limit.
std::optional<std::string> current_text_of(const Scaling& scaling, double raw);
std::optional<std::string> voltage_text_of(const Scaling& scaling, double raw);
std::optional<std::string> power_text_of(const Scaling& scaling, double raw, Division division,
                                         const UnitTable& units);

// Powers of the system, energies and demands: `raw` in 0.1 W (Wh, VA, ...) x 10^range, without a limit.
std::string real_power_text_of(const Scaling& scaling, double raw, const UnitTable& units);

// The last step of all of them. One count of `value` is 10^(exponent - 1) of the smallest unit: 1234 is 123.4
// of units[0] at exponent 0, 1.234 of units[1] at 1, 12.34 at 2, 123.4 at 3, 1.234 of units[2] at 4 and so
// on. Divides by ten and raises the exponent until the value rounds to four digits. `exponent` is 0 or more.
// A value that is not finite gives the overload text.
std::string prefix_text(double value, int exponent, Division division, const UnitTable& units);

}  // namespace halden
